#pragma once

#include "search/LetterPlaces.h"
#include "search/SearchKeyView.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quorvantel {

/// The fuzzy score without the positions. Of each row of the table only the cells are kept where
/// the row's letter is; what lies between them follows from the cell before. The memory serves key
/// after key.
class ScoreRows {
public:
    /// The score of a query of at least one letter, each of which `Letter` can hold; nothing if the
    /// key does not match.
    template <class Letter>
    std::optional<double> score(std::u32string_view query, const SearchKeyView<Letter>& key);

private:
    /// A place of the row's letter.
    struct Cell {
        std::size_t column;
        /// The best score with the letter placed here.
        double matched;
        /// The best score with the letter placed here or before.
        double best;
    };

    void start(bool isLast, std::span<const BoundaryBonus> bonuses);
    void advance(std::size_t letter, bool isLast, std::span<const BoundaryBonus> bonuses);
    void append(std::size_t column, double matched, bool isLast);
    static double bestAt(std::size_t column, const Cell& cell, bool isLast);

    LetterPlaces m_places;
    std::vector<Cell> m_previous;
    std::vector<Cell> m_current;
};

} // namespace quorvantel
