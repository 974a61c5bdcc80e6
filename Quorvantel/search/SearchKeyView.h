#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quorvantel {

/// A search key that is ready to be matched. Borrows its memory from a `PreparedKey` or a
/// `SearchKeyIndex`.
struct SearchKeyView {
    /// The folded scalars.
    std::u32string_view letters;
    /// The boundary bonus of each letter.
    std::span<const double> bonuses;
    /// `letterMask(letters)`.
    std::uint64_t mask;
};

} // namespace quorvantel
