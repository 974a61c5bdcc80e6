#pragma once

#include "search/QueryLetters.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quorvantel {

/// For each letter of a query the places in a key where it can be matched: those where the letter
/// is, after a place for the one before it, and before a place for the one after it. The memory
/// serves key after key.
class LetterPlaces {
public:
    /// How many places a word has, one a bit.
    static constexpr std::size_t wordSize = 64;

    /// Finds the places. Returns whether the letters are in the key in order; if not, there are no
    /// places to ask for. Bytes can only be asked for letters of Latin-1.
    template <class Letter>
    bool find(const QueryLetters& query, std::span<const Letter> key);

    /// How many words of places the key takes.
    std::size_t words() const { return m_words; }

    /// Where in a word of places a letter of the query can be matched; the lowest bit is the first
    /// place.
    std::uint64_t ofLetter(std::size_t letter, std::size_t word) const {
        return m_bits[letter * m_words + word];
    }

private:
    template <class Letter, class Words>
    bool find(const QueryLetters& query, std::span<const Letter> key, Words words);

    std::size_t m_words = 0;
    /// By letter of the query, its words of places.
    std::vector<std::uint64_t> m_bits;
};

} // namespace quorvantel
