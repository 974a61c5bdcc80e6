#include "search/QueryLetters.h"

#include "text/TextFolding.h"

#include <string_view>

namespace quorvantel {

void QueryLetters::set(QStringView query) {
    for (const char32_t letter : m_text) {
        m_lastOfLatin1[letter % m_lastOfLatin1.size()] = 0;
    }
    foldScalars(query, m_text);
    m_areLatin1 = true;
    m_blocks.clear();
    m_previous.assign(m_text.size() + 1, 0);
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        const char32_t letter = m_text[i];
        m_previous[i + 1] = std::u32string_view(m_text).substr(0, i).rfind(letter) + 1;
        m_blocks.emplace_back(static_cast<std::uint8_t>(letter));
        if (letter < m_lastOfLatin1.size()) {
            m_lastOfLatin1[letter] = i + 1;
        } else {
            m_areLatin1 = false;
        }
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
