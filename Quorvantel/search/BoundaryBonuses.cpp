#include "search/BoundaryBonuses.h"

#include "search/CharacterCase.h"

#include <algorithm>

namespace quorvantel {

namespace {

constexpr double firstScalarBonus = 0.9;
constexpr double slashBonus = 0.9;
constexpr double wordBonus = 0.8;
constexpr double camelCaseBonus = 0.7;
constexpr double dotBonus = 0.6;

double bonusAfter(char32_t previous, char32_t scalar) {
    switch (previous) {
    case U' ':
    case U'-':
    case U'_':
        return wordBonus;
    case U'.':
        return dotBonus;
    case U'/':
        return slashBonus;
    default:
        return isLowercase(previous) && isUppercase(scalar) ? camelCaseBonus : 0.0;
    }
}

} // namespace

std::vector<double> boundaryBonuses(std::u32string_view unfolded, size_t count) {
    std::vector<double> bonuses(count, 0.0);
    const size_t shared = std::min(count, unfolded.size());
    for (size_t k = 0; k < shared; ++k) {
        bonuses[k] = k == 0 ? firstScalarBonus : bonusAfter(unfolded[k - 1], unfolded[k]);
    }
    return bonuses;
}

} // namespace quorvantel
