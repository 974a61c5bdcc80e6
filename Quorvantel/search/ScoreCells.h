#pragma once

#include "search/LetterPlaces.h"
#include "search/QueryLetters.h"
#include "search/SearchKeyView.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace quorvantel {

/// The fuzzy score without the positions. Of the table only the cells are kept where a letter of
/// the query can be placed. The memory serves key after key.
class ScoreCells {
public:
    /// The score of a query of at least one letter; nothing if the key does not match. For a key of
    /// bytes all letters must be of Latin-1.
    template <class Letter>
    std::optional<double> score(const QueryLetters& query, const SearchKeyView<Letter>& key);

private:
    /// Of a cell, its index.
    using CellIndex = std::uint32_t;
    static constexpr CellIndex none = std::numeric_limits<CellIndex>::max();

    /// A letter of the query, placed at a column of the key.
    struct Cell {
        std::uint32_t column;
        int units;
        /// The best cell of the letter up to this one, and what it has in units.
        CellIndex best;
        int bestUnits;
        /// An earlier cell that is as good as this one.
        CellIndex equal;
        /// The latest cell of the letter before; none for the first letter.
        CellIndex before;
        /// As the formulas round it; not a number until it was asked for.
        double score;
    };

    void placeAll(std::size_t letters, std::span<const BoundaryBonus> bonuses);
    void placeLetter(std::size_t letter, int latenessStep, std::span<const BoundaryBonus> bonuses);
    static int unitsBefore(const Cell& before, std::size_t column);
    double scoreOf(CellIndex index, std::span<const BoundaryBonus> bonuses);
    double scoreAtEnd(CellIndex index, std::size_t lastLetter,
                      std::span<const BoundaryBonus> bonuses);

    LetterPlaces m_places;
    /// Letter by letter, each in the order of its columns.
    std::vector<Cell> m_cells;
    CellIndex m_cellCount = 0;
    /// By column the cell of the letters with even numbers, and that of those with odd ones.
    std::array<std::vector<CellIndex>, 2> m_cellAt;
};

} // namespace quorvantel
