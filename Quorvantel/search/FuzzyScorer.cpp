#include "search/FuzzyScorer.h"

#include "search/PreparedKey.h"
#include "search/QueryMatcher.h"

namespace quorvantel {

std::optional<FuzzyMatch> FuzzyScorer::match(QStringView query, QStringView key) {
    return QueryMatcher(query).match(PreparedKey(key).view());
}

std::optional<double> FuzzyScorer::score(QStringView query, QStringView key) {
    return QueryMatcher(query).score(PreparedKey(key).view());
}

} // namespace quorvantel
