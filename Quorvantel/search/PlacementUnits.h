#pragma once

#include "search/BoundaryBonuses.h"
#include "search/PlacementCosts.h"

#include <array>
#include <cstddef>

/// The gains and costs of a placement in whole numbers: but for their rounding, all are multiples
/// of one unit.
namespace quorvantel {

inline constexpr double placementUnit = 0.005;

constexpr int unitsOf(double value) {
    return static_cast<int>((value + placementUnit / 2) / placementUnit);
}

inline constexpr int leadingGapUnits = unitsOf(leadingGapCost);
inline constexpr int gapUnits = unitsOf(gapCost);
inline constexpr int gapUnitsAfterMatch = unitsOf(gapCostAfterMatch);
inline constexpr int consecutiveUnits = unitsOf(consecutiveBonus);

/// By `BoundaryBonus`.
inline constexpr auto boundaryBonusUnits = [] {
    std::array<int, boundaryBonusValues.size()> units{};
    for (std::size_t i = 0; i < units.size(); ++i) {
        units[i] = unitsOf(boundaryBonusValues[i]);
    }
    return units;
}();

constexpr int unitsOf(BoundaryBonus bonus) {
    return boundaryBonusUnits[static_cast<std::size_t>(bonus)];
}

} // namespace quorvantel
