#pragma once

#include "search/FuzzyMatch.h"
#include "search/QueryLetters.h"
#include "search/ScoreCells.h"
#include "search/SearchKeyView.h"

#include <QStringView>

#include <cstdint>
#include <optional>

namespace quorvantel {

/// Matches one query after the other against any number of prepared keys, reusing its scratch
/// memory.
class QueryMatcher {
public:
    QueryMatcher() = default;
    explicit QueryMatcher(QStringView query) { setQuery(query); }

    void setQuery(QStringView query);

    /// `letterMask` of the folded query.
    std::uint64_t mask() const { return m_mask; }

    /// The score of the best placement; nothing if the key does not match.
    std::optional<double> score(const Latin1Key& key);
    std::optional<double> score(const UnicodeKey& key);

    /// The best placement with its positions; nothing if the key does not match.
    std::optional<FuzzyMatch> match(const UnicodeKey& key) const;

private:
    template <class Letter>
    std::optional<double> scoreOf(const SearchKeyView<Letter>& key);

    bool m_isEmpty = true;
    QueryLetters m_letters;
    std::uint64_t m_mask = 0;
    ScoreCells m_cells;
};

} // namespace quorvantel
