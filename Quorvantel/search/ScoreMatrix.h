#pragma once

#include "search/FuzzyMatch.h"
#include "search/SearchKeyView.h"

#include <span>
#include <string_view>

namespace quorvantel {

/// The fuzzy score together with the positions, which take the whole matrix of cells to find:
/// memory in proportion to the product of both lengths.
///
/// The query must be a subsequence of the key; `firstColumns` comes from `SubsequenceFilter`.
FuzzyMatch bestPlacement(std::u32string_view query, const UnicodeKey& key,
                         std::span<const size_t> firstColumns);

} // namespace quorvantel
