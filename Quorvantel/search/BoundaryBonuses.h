#pragma once

#include <string_view>
#include <vector>

namespace quorvantel {

/// What a match of each scalar of a search key is worth by its place alone: most at the start of
/// the key or after "/", less at the start of a word, of a camel-case hump or after ".", nothing
/// elsewhere.
///
/// `unfolded` is the key as written, since folding destroys its case; `count` is the number of
/// bonuses wanted, the length of the folded key. Where folding made the key longer, the bonuses
/// beyond the key as written are 0.
std::vector<double> boundaryBonuses(std::u32string_view unfolded, size_t count);

} // namespace quorvantel
