#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Of a hundred letters that a keystroke looks at, some five are the wanted one. So keys of bytes
// are looked at many letters at a time, without a branch for each.
namespace quorvantel {

/// A letter as often as a stride of a key has letters.
struct alignas(16) LetterBlock {
    explicit LetterBlock(std::uint8_t letter) { bytes.fill(letter); }

    std::array<std::uint8_t, 16> bytes;
};

/// Eight letters at a time, by the arithmetic of any processor.
struct PortableLetterSearch {
    static constexpr std::size_t stride = 8;

    /// One bit for each letter of a stride, the lowest for the first: whether it is the wanted one.
    static std::uint64_t find(const std::uint8_t* letters, const LetterBlock& wanted) {
        static_assert(std::endian::native == std::endian::little);
        constexpr std::uint64_t lowBits = 0x7F7F7F7F7F7F7F7F;
        std::uint64_t word = 0;
        std::uint64_t wantedWord = 0;
        std::memcpy(&word, letters, sizeof word);
        std::memcpy(&wantedWord, wanted.bytes.data(), sizeof wantedWord);
        const std::uint64_t different = word ^ wantedWord;
        const std::uint64_t equal = ~(((different & lowBits) + lowBits) | different | lowBits);
        // Gathers the top bits of the bytes in the product's top byte.
        return ((equal >> 7) * 0x0102040810204080) >> 56;
    }
};

#ifdef __SSE2__

/// Sixteen letters at a time.
struct LetterSearch {
    static constexpr std::size_t stride = 16;

    static std::uint64_t find(const std::uint8_t* letters, const LetterBlock& wanted) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(letters));
        const __m128i wantedBlock =
            _mm_load_si128(reinterpret_cast<const __m128i*>(wanted.bytes.data()));
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wantedBlock)));
    }
};

#else

using LetterSearch = PortableLetterSearch;

#endif

/// One bit for each of up to 64 letters: whether it is the wanted one. Always reads 64, so that
/// it takes no branch.
template <class Search = LetterSearch>
std::uint64_t findLetter(std::span<const std::uint8_t> letters, const LetterBlock& wanted) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < 64; i += Search::stride) {
        bits |= Search::find(letters.data() + i, wanted) << i;
    }
    return bits & (~std::uint64_t{0} >> (64 - letters.size()));
}

} // namespace quorvantel
