#include "search/LetterPlaces.h"

#include "search/SearchKeyView.h"

#include <algorithm>
#include <cstring>
#include <optional>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Of a hundred letters that a keystroke looks at, some five are the wanted one. So keys of bytes
// are looked at many letters at a time, without a branch for each.
namespace quorvantel {

namespace {

constexpr std::size_t wordSize = 64;

#ifdef __SSE2__

constexpr std::size_t stride = 16;

/// One bit for each byte of a stride, the lowest for the first: whether it is `letter`.
std::uint64_t matchingBytes(const std::uint8_t* bytes, std::uint8_t letter) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    const __m128i equal = _mm_cmpeq_epi8(block, _mm_set1_epi8(static_cast<char>(letter)));
    return static_cast<unsigned>(_mm_movemask_epi8(equal));
}

#else

constexpr std::size_t stride = 8;

std::uint64_t matchingBytes(const std::uint8_t* bytes, std::uint8_t letter) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t lowBits = 0x7F7F7F7F7F7F7F7F;
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t block;
    std::memcpy(&block, bytes, sizeof block);
    const std::uint64_t different = block ^ (ones * letter);
    const std::uint64_t equal = ~(((different & lowBits) + lowBits) | different | lowBits);
    // Gathers the top bits of the bytes in the product's top byte.
    return ((equal >> 7) * 0x0102040810204080) >> 56;
}

#endif

static_assert(stride <= Latin1Key::padding + 1);

/// One bit for each of up to 64 letters: whether it is `wanted`.
std::uint64_t matches(std::span<const std::uint8_t> letters, char32_t wanted) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < letters.size(); i += stride) {
        bits |= matchingBytes(&letters[i], static_cast<std::uint8_t>(wanted)) << i;
    }
    return bits & (~std::uint64_t{0} >> (wordSize - letters.size()));
}

std::uint64_t matches(std::span<const char32_t> letters, char32_t wanted) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        bits |= std::uint64_t{letters[i] == wanted} << i;
    }
    return bits;
}

/// Keeps the places from `start` on. Returns the first one.
std::optional<std::size_t> keepFrom(std::size_t start, std::span<std::uint64_t> places) {
    for (std::size_t word = 0; word < places.size(); ++word) {
        const std::size_t offset = word * wordSize;
        if (start >= offset + wordSize) {
            places[word] = 0;
            continue;
        }
        if (start > offset) {
            places[word] &= ~std::uint64_t{0} << (start - offset);
        }
        if (places[word] != 0) {
            return offset + static_cast<std::size_t>(std::countr_zero(places[word]));
        }
    }
    return std::nullopt;
}

/// Keeps the places before `end`, of which there is one. Returns the last one.
std::size_t keepBefore(std::size_t end, std::span<std::uint64_t> places) {
    std::size_t word = places.size() - 1;
    for (;; --word) {
        const std::size_t offset = word * wordSize;
        if (end <= offset) {
            places[word] = 0;
            continue;
        }
        if (end < offset + wordSize) {
            places[word] &= (std::uint64_t{1} << (end - offset)) - 1;
        }
        if (places[word] != 0) {
            return offset + static_cast<std::size_t>(std::bit_width(places[word])) - 1;
        }
    }
}

} // namespace

template <class Letter>
bool LetterPlaces::find(std::u32string_view query, std::span<const Letter> key) {
    if (query.size() > key.size()) {
        return false;
    }
    m_words = (key.size() + wordSize - 1) / wordSize;
    if (m_bits.size() < query.size() * m_words) {
        m_bits.resize(query.size() * m_words);
    }
    std::size_t start = 0;
    for (std::size_t i = 0; i < query.size(); ++i) {
        const std::span<std::uint64_t> places = placesOf(i);
        for (std::size_t word = 0; word < m_words; ++word) {
            const std::size_t offset = word * wordSize;
            places[word] =
                matches(key.subspan(offset, std::min(wordSize, key.size() - offset)), query[i]);
        }
        const auto first = keepFrom(start, places);
        if (!first) {
            return false;
        }
        start = *first + 1;
    }
    std::size_t end = key.size();
    for (std::size_t i = query.size(); i-- > 0;) {
        end = keepBefore(end, placesOf(i));
    }
    return true;
}

template bool LetterPlaces::find(std::u32string_view, std::span<const std::uint8_t>);
template bool LetterPlaces::find(std::u32string_view, std::span<const char32_t>);

} // namespace quorvantel
