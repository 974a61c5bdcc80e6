#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Of a hundred letters that a keystroke looks at, some ten are the query's. So keys of bytes are
// looked at many letters at a time, without a branch for each.
namespace quorvantel {

/// One letter of a query, as often as a block of a key has letters.
struct alignas(16) LetterBlock {
    explicit LetterBlock(std::uint8_t letter) { bytes.fill(letter); }

    std::array<std::uint8_t, 16> bytes;
};

/// Eight letters at once, by the arithmetic of any processor.
struct PortableLetterSearch {
    static constexpr std::size_t stride = 8;

    /// One bit for each of the letters, the lowest for the first: whether it is a wanted one.
    static std::uint64_t find(const std::uint8_t* letters, std::span<const LetterBlock> wanted) {
        constexpr std::uint64_t lowBits = 0x7F7F7F7F7F7F7F7F;
        const std::uint64_t block = wordAt(letters);
        std::uint64_t found = 0;
        for (const LetterBlock& letter : wanted) {
            const std::uint64_t different = block ^ wordAt(letter.bytes.data());
            found |= ~(((different & lowBits) + lowBits) | different | lowBits);
        }
        // Gathers the top bits of the bytes in the product's top byte.
        return ((found >> 7) * 0x0102040810204080) >> 56;
    }

private:
    static std::uint64_t wordAt(const std::uint8_t* bytes) {
        static_assert(std::endian::native == std::endian::little);
        std::uint64_t word;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }
};

#ifdef __SSE2__

/// Sixteen letters at once.
struct LetterSearch {
    static constexpr std::size_t stride = 16;

    static std::uint64_t find(const std::uint8_t* letters, std::span<const LetterBlock> wanted) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(letters));
        __m128i found = _mm_setzero_si128();
        for (const LetterBlock& letter : wanted) {
            const auto* const pattern = reinterpret_cast<const __m128i*>(letter.bytes.data());
            found = _mm_or_si128(found, _mm_cmpeq_epi8(block, _mm_load_si128(pattern)));
        }
        return static_cast<unsigned>(_mm_movemask_epi8(found));
    }
};

#else

using LetterSearch = PortableLetterSearch;

#endif

/// One bit for each of up to 64 letters: whether it is a wanted one. Reads up to the end of a
/// stride.
template <class Search = LetterSearch>
std::uint64_t findLetters(std::span<const std::uint8_t> letters,
                          std::span<const LetterBlock> wanted) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < letters.size(); i += Search::stride) {
        bits |= Search::find(&letters[i], wanted) << i;
    }
    return bits & (~std::uint64_t{0} >> (64 - letters.size()));
}

} // namespace quorvantel
