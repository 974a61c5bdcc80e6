#include "search/BoundaryBonuses.h"

#include "search/CharacterCase.h"

#include <algorithm>

namespace quorvantel {

BoundaryBonus bonusAfter(char32_t previous, char32_t scalar) {
    switch (previous) {
    case U' ':
    case U'-':
    case U'_':
        return BoundaryBonus::Word;
    case U'.':
        return BoundaryBonus::AfterDot;
    case U'/':
        return BoundaryBonus::AfterSlash;
    default:
        return isLowercase(previous) && isUppercase(scalar) ? BoundaryBonus::CamelCase
                                                            : BoundaryBonus::None;
    }
}

std::vector<BoundaryBonus> boundaryBonuses(std::u32string_view unfolded, size_t count) {
    std::vector<BoundaryBonus> bonuses(count, BoundaryBonus::None);
    const size_t shared = std::min(count, unfolded.size());
    for (size_t k = 0; k < shared; ++k) {
        bonuses[k] = k == 0 ? BoundaryBonus::First : bonusAfter(unfolded[k - 1], unfolded[k]);
    }
    return bonuses;
}

} // namespace quorvantel
