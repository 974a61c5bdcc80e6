#include "search/QueryLetters.h"

#include "search/SearchKeyView.h"
#include "text/TextFolding.h"

#include <algorithm>

namespace quorvantel {

void QueryLetters::set(QStringView query) {
    foldScalars(query, m_text);
    m_areLatin1 =
        std::ranges::all_of(m_text, [](char32_t letter) { return letter <= largestLatin1Letter; });
    m_blocks.clear();
    for (const char32_t letter : m_text) {
        m_blocks.emplace_back(static_cast<std::uint8_t>(letter));
    }
}

std::uint64_t QueryLetters::find(std::size_t index, std::span<const char32_t> letters) const {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        bits |= std::uint64_t{letters[i] == m_text[index]} << i;
    }
    return bits;
}

} // namespace quorvantel
