#include "search/QueryMatcher.h"

#include "search/LetterMask.h"
#include "search/PlacementCosts.h"
#include "search/ScoreMatrix.h"
#include "search/SubsequenceFilter.h"

namespace quorvantel {

void QueryMatcher::setQuery(QStringView query) {
    m_isEmpty = query.isEmpty();
    m_letters.set(query);
    m_mask = letterMask(m_letters.text());
}

std::optional<double> QueryMatcher::score(const Latin1Key& key) {
    return m_letters.areLatin1() ? scoreOf(key) : std::nullopt;
}

std::optional<double> QueryMatcher::score(const UnicodeKey& key) {
    return scoreOf(key);
}

template <class Letter>
std::optional<double> QueryMatcher::scoreOf(const SearchKeyView<Letter>& key) {
    if (m_isEmpty) {
        return 0.0;
    }
    if (m_letters.size() == 0) {
        return -leadingGapCost * static_cast<double>(key.letters.size());
    }
    if (lacksLetters(key.mask, m_mask)) {
        return std::nullopt;
    }
    return m_cells.score(m_letters, key);
}

std::optional<FuzzyMatch> QueryMatcher::match(const UnicodeKey& key) const {
    if (m_isEmpty) {
        return FuzzyMatch{0.0, {}};
    }
    SubsequenceFilter filter(m_letters.text());
    if (!filter.accepts(key)) {
        return std::nullopt;
    }
    return bestPlacement(m_letters.text(), key, filter.firstColumns());
}

} // namespace quorvantel
