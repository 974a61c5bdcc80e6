#pragma once

#include "catalogue/LaunchTarget.h"

#include <cstdint>
#include <vector>

namespace quorvantel {

/// For each target the place of its display name in the current locale's alphabetical order (the
/// Unicode Collation Algorithm where the locale has a collation), case disregarded. Names that are
/// equal in that order share a place.
std::vector<std::uint32_t> nameRanks(const std::vector<LaunchTarget>& targets);

} // namespace quorvantel
