#pragma once

#include "search/LetterPlaces.h"
#include "search/QueryLetters.h"
#include "search/SearchKeyView.h"

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
        /// The letter before as it was then: where it was placed best, and where last.
        CellIndex best;
        CellIndex latest;
        /// An earlier cell of this letter that is as good for all that follows.
        CellIndex equal;
        /// As the formulas round it; not a number until it was asked for.
        double score;
    };

    /// The placements of the letters up to one of them, in the columns up to now.
    struct alignas(32) Row {
        int bestUnits;
        CellIndex best;
        int latestUnits;
        CellIndex latest;
        std::uint32_t latestColumn;
        /// What the row's next cell loses by coming after others of the last letter.
        int lateness;
        /// By how much that grows with each cell.
        int latenessStep;
    };

    void start(std::size_t letters);
    template <class Letter>
    void placeAll(const QueryLetters& query, std::span<const Letter> letters,
                  std::span<const BoundaryBonus> bonuses);
    static void place(const Row& before, Row& row, std::span<Cell> cells, CellIndex index,
                      std::uint32_t column, int bonus);
    double scoreOf(CellIndex index, std::span<const BoundaryBonus> bonuses);
    double scoreAtEnd(CellIndex index, std::size_t lastLetter,
                      std::span<const BoundaryBonus> bonuses);

    LetterPlaces m_places;
    /// By letter, from 1 on. Before them is the row in which nothing is placed.
    std::vector<Row> m_rows;
    std::vector<Cell> m_cells;
};

} // namespace quorvantel
