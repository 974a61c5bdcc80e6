#pragma once

#include "search/PlacementCosts.h"
#include "search/SearchKeyView.h"

#include <algorithm>
#include <limits>
#include <span>

/// The recurrence behind the fuzzy score, one row at a time. Row i concerns the first i letters of
/// the query, column j the first j letters of the key; both count from 0, the empty prefix.
namespace quorvantel {

/// The value of a cell that no placement reaches. Every bonus and cost vanishes in its rounding, so
/// it takes part in the arithmetic below and stays what it is.
inline constexpr double unreachable = std::numeric_limits<double>::lowest();

/// One cell a column.
struct PlacementRow {
    /// The best score with the row's last letter placed exactly at the column.
    std::span<double> matched;
    /// The best score with all of the row's letters placed at or before the column.
    std::span<double> best;
};

/// Fills row 0: nothing is placed, and each skipped character costs a little.
inline void startPlacement(const PlacementRow& row) {
    std::fill(row.matched.begin(), row.matched.end(), unreachable);
    for (size_t j = 0; j < row.best.size(); ++j) {
        row.best[j] = -leadingGapCost * static_cast<double>(j);
    }
}

/// Fills the cells of the row that places `letter`, from `firstColumn` on; the letter cannot be
/// placed before it, and cells to its left are neither read nor written.
inline void advancePlacement(char32_t letter, bool isLastLetter, size_t firstColumn,
                             const UnicodeKey& key, const PlacementRow& previous,
                             const PlacementRow& row) {
    const double costAfterMatch = isLastLetter ? gapCostAfterMatch : gapCost;

    double best = unreachable;
    double matched = unreachable;
    for (size_t j = firstColumn; j < row.best.size(); ++j) {
        const double gap = best - (matched > unreachable ? costAfterMatch : gapCost);
        matched = unreachable;
        if (key.letters[j - 1] == letter) {
            const double bonus = valueOf(key.bonuses[j - 1]);
            const double run = previous.matched[j - 1] + consecutiveBonus + bonus;
            const double fresh = previous.best[j - 1] + bonus;
            matched = std::max(run, fresh);
        }
        best = std::max(matched, gap);
        row.matched[j] = matched;
        row.best[j] = best;
    }
}

} // namespace quorvantel
