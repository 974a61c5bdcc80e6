#pragma once

#include "search/FuzzyMatch.h"
#include "search/ScoreRows.h"
#include "search/SearchKeyView.h"
#include "search/SubsequenceFilter.h"

#include <QStringView>

#include <optional>

namespace quorvantel {

/// Matches one query against any number of prepared keys, reusing its scratch memory.
class QueryMatcher {
public:
    explicit QueryMatcher(QStringView query);

    /// The score of the best placement; nothing if the key does not match.
    std::optional<double> score(const SearchKeyView& key);

    /// The best placement with its positions; nothing if the key does not match.
    std::optional<FuzzyMatch> match(const SearchKeyView& key);

private:
    bool m_isEmpty;
    SubsequenceFilter m_filter;
    ScoreRows m_rows;
};

} // namespace quorvantel
