#pragma once

#include "search/LetterBlock.h"

#include <QStringView>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quorvantel {

/// The folded letters of a query, ready to be looked for. The memory serves query after query.
class QueryLetters {
public:
    /// `query` is as typed.
    void set(QStringView query);

    const std::u32string& text() const { return m_text; }
    std::size_t size() const { return m_text.size(); }

    /// Whether keys of bytes can have all of them.
    bool areLatin1() const { return m_areLatin1; }

    /// One bit for each of up to 64 letters of a key: whether it is that at `index` in the query.
    std::uint64_t find(std::size_t index, std::span<const std::uint8_t> letters) const {
        return findLetter(letters, m_blocks[index]);
    }
    std::uint64_t find(std::size_t index, std::span<const char32_t> letters) const;

private:
    std::u32string m_text;
    bool m_areLatin1 = true;
    /// For keys of bytes.
    std::vector<LetterBlock> m_blocks;
};

} // namespace quorvantel
