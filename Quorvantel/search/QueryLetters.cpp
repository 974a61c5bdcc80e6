#include "search/QueryLetters.h"

#include "text/TextFolding.h"

#include <string_view>
#include <utility>

namespace quorvantel {

void QueryLetters::set(QStringView query) {
    foldScalars(query, m_text);
    m_areLatin1 = true;
    m_lastOfLatin1.fill(0);
    m_latin1Blocks.clear();
    m_previous.assign(m_text.size() + 1, 0);
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        const char32_t letter = m_text[i];
        m_previous[i + 1] = std::u32string_view(m_text).substr(0, i).rfind(letter) + 1;
        if (letter >= m_lastOfLatin1.size()) {
            m_areLatin1 = false;
            continue;
        }
        if (std::exchange(m_lastOfLatin1[letter], i + 1) == 0) {
            m_latin1Blocks.emplace_back(static_cast<std::uint8_t>(letter));
        }
    }
}

std::uint64_t QueryLetters::placesIn(std::span<const char32_t> letters) const {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        bits |= std::uint64_t{lastOf(letters[i]) != 0} << i;
    }
    return bits;
}

} // namespace quorvantel
