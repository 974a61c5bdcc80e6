#pragma once

#include "catalogue/LaunchTarget.h"

#include <cstdint>
#include <vector>

namespace quorvantel {

/// The indices of the targets in about the order in which most languages have their display names;
/// targets whose names are the same stay in the order in which they came.
std::vector<std::uint32_t> guessedNameOrder(const std::vector<LaunchTarget>& targets);

} // namespace quorvantel
