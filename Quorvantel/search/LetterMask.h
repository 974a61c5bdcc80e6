#pragma once

#include <cstdint>
#include <string_view>

namespace quorvantel {

/// The set of letters of a folded text as 64 bits. The Latin letters and the digits have a bit
/// each, all other scalars share the rest; so a text that has a letter which another one lacks may
/// still have no bit that the other one's mask lacks, but never the other way round.
std::uint64_t letterMask(std::u32string_view letters);

/// Whether the mask of a key rules out that the key contains all letters of the query.
constexpr bool lacksLetters(std::uint64_t keyMask, std::uint64_t queryMask) {
    return (queryMask & ~keyMask) != 0;
}

} // namespace quorvantel
