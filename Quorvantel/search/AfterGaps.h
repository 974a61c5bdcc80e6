#pragma once

#include <cstddef>

namespace quorvantel {

/// The score after `count` skipped characters: `gapCost` taken away that many times, each time
/// rounded, bit for bit, but in a time that does not grow with the count.
double afterGaps(double score, std::size_t count);

} // namespace quorvantel
