#pragma once

#include "search/BoundaryBonuses.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvantel {

/// A search key that is ready to be matched. Borrows its memory from a `PreparedKey` or a
/// `SearchKeyIndex`.
///
/// A letter is a folded scalar: a `char32_t`, or a byte in a key that has only those of Latin-1.
/// Beyond the end of a key `padding` more letters can be read; what they are makes no difference.
template <class Letter>
struct SearchKeyView {
    /// None for letters that are looked at one by one.
    static constexpr std::size_t padding = sizeof(Letter) == 1 ? 63 : 0;

    std::span<const Letter> letters;
    /// One for each letter.
    std::span<const BoundaryBonus> bonuses;
    /// `letterMask` of the letters.
    std::uint64_t mask;
};

/// The largest letter of a key of bytes.
inline constexpr char32_t largestLatin1Letter = 0xFF;

using Latin1Key = SearchKeyView<std::uint8_t>;
using UnicodeKey = SearchKeyView<char32_t>;

} // namespace quorvantel
