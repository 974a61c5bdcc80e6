#pragma once

#include "search/LetterBlock.h"

#include <QStringView>

#include <array>
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

    /// Where the query has a letter last, counted from 1; 0 if it does not have it.
    std::size_t lastOf(char32_t letter) const {
        return letter < m_lastOfLatin1.size() ? m_lastOfLatin1[letter] : m_text.rfind(letter) + 1;
    }

    /// Where it has the letter at `place` before that.
    std::size_t previousOf(std::size_t place) const { return m_previous[place]; }

    /// One bit for each of up to 64 letters of a key: whether it is that at `index` in the query.
    std::uint64_t find(std::size_t index, std::span<const std::uint8_t> letters) const {
        return findLetter(letters, m_blocks[index]);
    }
    std::uint64_t find(std::size_t index, std::span<const char32_t> letters) const;

private:
    std::u32string m_text;
    bool m_areLatin1 = true;
    std::array<std::size_t, 0x100> m_lastOfLatin1{};
    std::vector<std::size_t> m_previous;
    std::vector<LetterBlock> m_blocks;
};

} // namespace quorvantel
