#pragma once

#include "catalogue/LaunchTarget.h"

#include <cstdint>
#include <vector>

namespace quorvantel {

/// The indices of the targets in the current locale's alphabetical order of their display names
/// (the Unicode Collation Algorithm where the locale has a collation), case disregarded; targets
/// whose names are equal in that order stay in the order in which they came.
std::vector<std::uint32_t> nameOrder(const std::vector<LaunchTarget>& targets);

} // namespace quorvantel
