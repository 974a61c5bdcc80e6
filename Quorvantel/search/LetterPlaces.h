#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quorvantel {

/// For each letter of a query the places in a key where it can be matched: those where the letter
/// is, after a place for the one before it, and before a place for the one after it. The memory
/// serves key after key.
class LetterPlaces {
public:
    /// Finds the places. Returns whether the letters are in the key in order; if not, there are no
    /// places to ask for. `Letter` must be able to hold each letter of the query.
    template <class Letter>
    bool find(std::u32string_view query, std::span<const Letter> key);

    /// Calls `visit` with the place of each match of one letter of the query, in ascending order.
    template <class Visitor>
    void forEach(std::size_t letter, Visitor visit) const {
        for (std::size_t word = 0; word < m_words; ++word) {
            for (std::uint64_t bits = m_bits[letter * m_words + word]; bits != 0;
                 bits &= bits - 1) {
                visit(word * 64 + static_cast<std::size_t>(std::countr_zero(bits)));
            }
        }
    }

private:
    std::span<std::uint64_t> placesOf(std::size_t letter) {
        return std::span(m_bits).subspan(letter * m_words, m_words);
    }

    /// How many words of 64 places a key takes.
    std::size_t m_words = 0;
    /// A bit for each place, by letter of the query.
    std::vector<std::uint64_t> m_bits;
};

} // namespace quorvantel
