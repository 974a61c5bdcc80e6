#pragma once

#include <vector>

namespace quorvantel {

/// How a query was found in a search key.
struct FuzzyMatch {
    /// The higher, the better. May be negative.
    double score;
    /// For each scalar of the folded query, the 0-based index of the scalar of the folded key at
    /// which it was found; strictly increasing.
    std::vector<int> positions;

    friend bool operator==(const FuzzyMatch&, const FuzzyMatch&) = default;
};

} // namespace quorvantel
