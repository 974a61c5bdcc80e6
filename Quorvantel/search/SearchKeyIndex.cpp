#include "search/SearchKeyIndex.h"

#include "search/NameRanks.h"
#include "search/PreparedKey.h"
#include "search/QueryMatcher.h"

namespace quorvantel {

SearchKeyIndex::SearchKeyIndex(const std::vector<LaunchTarget>& catalogue)
    : m_nameRanks(nameRanks(catalogue)) {
    m_firstKeys.reserve(catalogue.size() + 1);
    m_firstKeys.push_back(0);
    for (const LaunchTarget& target : catalogue) {
        for (const QString& key : target.searchKeys()) {
            append(PreparedKey(key).view());
        }
        m_firstKeys.push_back(static_cast<std::uint32_t>(m_keys.size()));
    }
}

std::optional<double> SearchKeyIndex::bestScore(std::uint32_t target, QueryMatcher& matcher) const {
    std::optional<double> best;
    for (std::uint32_t i = m_firstKeys[target]; i < m_firstKeys[target + 1]; ++i) {
        const std::optional<double> score = matcher.score(view(m_keys[i]));
        if (score && (!best || *score > *best)) {
            best = score;
        }
    }
    return best;
}

void SearchKeyIndex::append(const SearchKeyView& key) {
    m_keys.push_back({key.mask, static_cast<std::uint32_t>(m_letters.size()),
                      static_cast<std::uint32_t>(key.letters.size())});
    m_letters += key.letters;
    m_bonuses.insert(m_bonuses.end(), key.bonuses.begin(), key.bonuses.end());
}

SearchKeyView SearchKeyIndex::view(const Key& key) const {
    return {std::u32string_view(m_letters).substr(key.start, key.length),
            std::span(m_bonuses).subspan(key.start, key.length), key.mask};
}

} // namespace quorvantel
