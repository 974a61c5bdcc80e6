#pragma once

#include <cstdint>
#include <span>

namespace quorvantel {

/// The bit of a folded letter in a mask. The Latin letters and the digits have a bit each, all
/// other scalars share the rest.
constexpr std::uint64_t letterBit(char32_t letter) {
    constexpr unsigned digitsStart = 26;
    constexpr unsigned othersStart = 36;
    constexpr unsigned othersCount = 64 - othersStart;
    if (letter >= U'a' && letter <= U'z') {
        return std::uint64_t{1} << (letter - U'a');
    }
    if (letter >= U'0' && letter <= U'9') {
        return std::uint64_t{1} << (digitsStart + (letter - U'0'));
    }
    return std::uint64_t{1} << (othersStart + letter % othersCount);
}

/// The set of letters of a folded text as 64 bits. A text that has a letter which another one lacks
/// may still have no bit that the other one's mask lacks, but never the other way round.
constexpr std::uint64_t letterMask(std::span<const char32_t> letters) {
    std::uint64_t mask = 0;
    for (const char32_t letter : letters) {
        mask |= letterBit(letter);
    }
    return mask;
}

/// Whether the mask of a key rules out that the key contains all letters of the query.
constexpr bool lacksLetters(std::uint64_t keyMask, std::uint64_t queryMask) {
    return (queryMask & ~keyMask) != 0;
}

} // namespace quorvantel
