#pragma once

#include "search/BoundaryBonuses.h"
#include "search/PlacementCosts.h"

#include <array>
#include <cstddef>

/// The gains and costs of a placement in whole numbers: apart from how they are rounded, all are
/// multiples of one unit.
namespace quorvantel {

inline constexpr double placementUnit = leadingGapCost;

constexpr int unitsOf(double value) {
    return static_cast<int>(value / placementUnit + 0.5);
}

inline constexpr int consecutiveUnits = unitsOf(consecutiveBonus);
inline constexpr int gapUnits = unitsOf(gapCost);

static_assert(gapCost == 2 * placementUnit && gapCostAfterMatch == placementUnit);
static_assert(consecutiveUnits == 200);

constexpr int unitsOf(BoundaryBonus bonus) {
    constexpr std::array values{
        unitsOf(valueOf(BoundaryBonus::None)),       unitsOf(valueOf(BoundaryBonus::AfterDot)),
        unitsOf(valueOf(BoundaryBonus::CamelCase)),  unitsOf(valueOf(BoundaryBonus::Word)),
        unitsOf(valueOf(BoundaryBonus::AfterSlash)), unitsOf(valueOf(BoundaryBonus::First))};
    return values[static_cast<std::size_t>(bonus)];
}

} // namespace quorvantel
