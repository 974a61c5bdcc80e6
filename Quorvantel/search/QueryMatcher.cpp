#include "search/QueryMatcher.h"

#include "search/ScoreMatrix.h"
#include "text/TextFolding.h"

namespace quorvantel {

QueryMatcher::QueryMatcher(QStringView query)
    : m_isEmpty(query.isEmpty()), m_filter(foldedScalars(query)) {}

std::optional<double> QueryMatcher::score(const SearchKeyView& key) {
    if (m_isEmpty) {
        return 0.0;
    }
    if (!m_filter.accepts(key)) {
        return std::nullopt;
    }
    return m_rows.score(m_filter.query(), key, m_filter.firstColumns());
}

std::optional<FuzzyMatch> QueryMatcher::match(const SearchKeyView& key) {
    if (m_isEmpty) {
        return FuzzyMatch{0.0, {}};
    }
    if (!m_filter.accepts(key)) {
        return std::nullopt;
    }
    return bestPlacement(m_filter.query(), key, m_filter.firstColumns());
}

} // namespace quorvantel
