#pragma once

#include "search/CharacterCase.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvantel {

/// What a match of a scalar of a search key is worth by its place alone.
enum class BoundaryBonus : std::uint8_t {
    None,
    AfterDot,
    CamelCase, ///< At an upper-case letter after a lower-case one.
    Word,      ///< After a space, "-" or "_".
    AfterSlash,
    First, ///< At the start of the key.
};

/// By `BoundaryBonus`.
inline constexpr std::array boundaryBonusValues{0.0, 0.6, 0.7, 0.8, 0.9, 0.9};

constexpr double valueOf(BoundaryBonus bonus) {
    return boundaryBonusValues[static_cast<std::size_t>(bonus)];
}

/// The bonus of a scalar that is not the first, by the one before it. Both are as written, since
/// folding destroys their case.
inline BoundaryBonus bonusAfter(char32_t previous, char32_t scalar) {
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

/// The bonus of each scalar of a search key. `unfolded` is the key as written; `count` is the
/// number of bonuses wanted, the length of the folded key. Where folding made the key longer, there
/// are none beyond the key as written.
std::vector<BoundaryBonus> boundaryBonuses(std::u32string_view unfolded, size_t count);

} // namespace quorvantel
