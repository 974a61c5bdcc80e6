#include "search/LetterPlaces.h"

#include <algorithm>
#include <bit>
#include <type_traits>

namespace quorvantel {

namespace {

constexpr std::size_t wordSize = LetterPlaces::wordSize;

/// One bit for each of the letters of a key from `offset` on, up to 64: whether it is a letter of
/// the query.
template <class Letter>
std::uint64_t findIn(std::span<const Letter> key, std::size_t offset, std::size_t letter,
                     const QueryLetters& query) {
    return query.find(letter, key.subspan(offset, std::min(wordSize, key.size() - offset)));
}

} // namespace

template <class Letter>
bool LetterPlaces::find(const QueryLetters& query, std::span<const Letter> key) {
    if (query.size() > key.size()) {
        return false;
    }
    m_words = (key.size() + wordSize - 1) / wordSize;
    if (m_bits.size() < query.size() * m_words) {
        m_bits.resize(query.size() * m_words);
    }
    // What most keys have is known ahead, for the compiler to do without loops.
    switch (m_words) {
    case 1:
        return find(query, key, std::integral_constant<std::size_t, 1>());
    case 2:
        return find(query, key, std::integral_constant<std::size_t, 2>());
    default:
        return find(query, key, m_words);
    }
}

template <class Letter, class Words>
bool LetterPlaces::find(const QueryLetters& query, std::span<const Letter> key, Words words) {
    // The first word that has places of the letter before, and those in it after the first of them.
    std::size_t firstWord = 0;
    std::uint64_t after = ~std::uint64_t{0};
    for (std::size_t letter = 0; letter < query.size(); ++letter) {
        std::uint64_t* const places = &m_bits[letter * words];
        std::fill(places, places + firstWord, 0);
        std::uint64_t bits = findIn(key, firstWord * wordSize, letter, query) & after;
        while (bits == 0) {
            places[firstWord++] = 0;
            if (firstWord == words) {
                return false;
            }
            bits = findIn(key, firstWord * wordSize, letter, query);
        }
        places[firstWord] = bits;
        for (std::size_t word = firstWord + 1; word < words; ++word) {
            places[word] = findIn(key, word * wordSize, letter, query);
        }
        // All above the lowest place.
        after = ~(bits ^ (bits - 1));
    }
    std::size_t lastWord = words - 1;
    std::uint64_t before = ~std::uint64_t{0};
    for (std::size_t letter = query.size(); letter-- > 0;) {
        std::uint64_t* const places = &m_bits[letter * words];
        std::fill(places + lastWord + 1, places + words, 0);
        places[lastWord] &= before;
        while (places[lastWord] == 0) {
            --lastWord;
        }
        before = std::bit_floor(places[lastWord]) - 1;
    }
    return true;
}

template bool LetterPlaces::find(const QueryLetters&, std::span<const std::uint8_t>);
template bool LetterPlaces::find(const QueryLetters&, std::span<const char32_t>);

} // namespace quorvantel
