#pragma once

#include "search/PlacementRow.h"
#include "search/SearchKeyView.h"

#include <span>
#include <string_view>
#include <vector>

namespace quorvantel {

/// The fuzzy score without the positions: two rows of cells, whose memory serves key after key.
class ScoreRows {
public:
    /// The score of a query that is a subsequence of the key. `firstColumns` comes from
    /// `SubsequenceFilter`.
    double score(std::u32string_view query, const SearchKeyView& key,
                 std::span<const size_t> firstColumns);

private:
    std::vector<double> m_cells;
};

} // namespace quorvantel
