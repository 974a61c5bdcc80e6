#include "search/ScoreCells.h"

#include "search/AfterGaps.h"
#include "search/PlacementUnits.h"

#include <algorithm>
#include <bit>
#include <cmath>

// Which placement is the best is a question of whole numbers, which take no time to add; only the
// best one's score is worked out as the formulas round it. A placement that is worse by a unit
// stays worse however both are rounded. Of those that are equally good, all are worked out.
//
// Units are counted as if skipping were free: two more for each column, so that a placement keeps
// its units from column to column. After the last letter, each column that has it makes the next
// one cheaper by a unit; a placement has the fewer, the later it comes.
//
// What a key's letters are is as good as random for a processor that guesses at branches, so what
// each cell does has none.
namespace quorvantel {

namespace {

constexpr std::size_t wordSize = LetterPlaces::wordSize;

constexpr int unreachable = std::numeric_limits<int>::min() / 2;

/// What a placement loses for each column of the last letter before it.
constexpr int latenessUnits = gapUnits - gapUnitsAfterMatch;

constexpr double unknown = std::numeric_limits<double>::quiet_NaN();

constexpr double leastScore = std::numeric_limits<double>::lowest();

/// The highest bit; of none, the lowest.
std::size_t lastPlace(std::uint64_t places) {
    return static_cast<std::size_t>(std::bit_width(places | 1)) - 1;
}

} // namespace

template <class Letter>
std::optional<double> ScoreCells::score(const QueryLetters& query,
                                        const SearchKeyView<Letter>& key) {
    if (!m_places.find(query, key.letters)) {
        return std::nullopt;
    }
    placeAll(query.size(), key.bonuses);
    double best = leastScore;
    for (CellIndex i = m_cells[m_cellCount - 1].best; i != none; i = m_cells[i].equal) {
        best = std::max(best, scoreAtEnd(i, query.size() - 1, key.bonuses));
    }
    return best;
}

void ScoreCells::placeAll(std::size_t letters, std::span<const BoundaryBonus> bonuses) {
    for (std::vector<CellIndex>& cells : m_cellAt) {
        if (cells.size() < m_places.words() * wordSize) {
            cells.resize(m_places.words() * wordSize);
        }
    }
    m_cellCount = 0;
    for (std::size_t letter = 0; letter + 1 < letters; ++letter) {
        placeLetter(letter, 0, bonuses);
    }
    placeLetter(letters - 1, latenessUnits, bonuses);
}

/// What a letter takes over at a column from those before it, whose latest cell is `before`.
inline int ScoreCells::unitsBefore(const Cell& before, std::size_t column) {
    const int run = before.units + consecutiveUnits;
    const bool isRun = (before.column + 1 == column) & (run > before.bestUnits);
    return gapUnits + (isRun ? run : before.bestUnits);
}

/// Places a letter at its columns. Each costs it `latenessStep` more than the one before.
void ScoreCells::placeLetter(std::size_t letter, int latenessStep,
                             std::span<const BoundaryBonus> bonuses) {
    const bool isFirstLetter = letter == 0;
    CellIndex* const cellAt = m_cellAt[letter % 2].data();
    const CellIndex* const earlierCellAt = m_cellAt[1 - letter % 2].data();
    CellIndex best = none;
    int bestUnits = unreachable;
    int lateness = 0;
    CellIndex index = m_cellCount;
    CellIndex lastOfEarlierWords = none;
    for (std::size_t word = 0; word < m_places.words(); ++word) {
        if (m_cells.size() < index + wordSize) {
            m_cells.resize(index + wordSize);
        }
        Cell* const cells = m_cells.data();
        const std::size_t offset = word * wordSize;
        const std::uint64_t earlier = isFirstLetter ? 0 : m_places.ofLetter(letter - 1, word);
        for (std::uint64_t bits = m_places.ofLetter(letter, word); bits != 0; bits &= bits - 1) {
            const auto bit = static_cast<std::size_t>(std::countr_zero(bits));
            const std::size_t column = offset + bit;
            int units = unitsOf(bonuses[column]);
            CellIndex before = none;
            if (isFirstLetter) {
                units += (gapUnits - leadingGapUnits) * static_cast<int>(column);
            } else {
                const std::uint64_t places = earlier & ((std::uint64_t{1} << bit) - 1);
                const CellIndex lastOfWord = earlierCellAt[offset + lastPlace(places)];
                before = places != 0 ? lastOfWord : lastOfEarlierWords;
                units += unitsBefore(cells[before], column);
            }
            const int unitsAtEnd = units - lateness;
            const CellIndex equal = unitsAtEnd == bestUnits ? best : none;
            // All bits if the earlier one stays the best: compilers would make a choice a branch.
            const CellIndex stays = -static_cast<CellIndex>(unitsAtEnd < bestUnits);
            best = (best & stays) | (index & ~stays);
            bestUnits = unitsAtEnd > bestUnits ? unitsAtEnd : bestUnits;
            cells[index] = {
                static_cast<std::uint32_t>(column), units, best, bestUnits, equal, before, unknown};
            cellAt[column] = index++;
            lateness += latenessStep;
        }
        if (earlier != 0) {
            lastOfEarlierWords = earlierCellAt[offset + lastPlace(earlier)];
        }
    }
    m_cellCount = index;
}

/// The score with the cell's letter at its column.
double ScoreCells::scoreOf(CellIndex index, std::span<const BoundaryBonus> bonuses) {
    Cell& cell = m_cells[index];
    if (!std::isnan(cell.score)) {
        return cell.score;
    }
    const double bonus = valueOf(bonuses[cell.column]);
    if (cell.before == none) {
        cell.score = -leadingGapCost * static_cast<double>(cell.column) + bonus;
        return cell.score;
    }
    const int unitsBefore = cell.units - gapUnits - unitsOf(bonuses[cell.column]);
    const Cell& latest = m_cells[cell.before];
    double best = leastScore;
    if (latest.bestUnits == unitsBefore) {
        for (CellIndex before = latest.best; before != none; before = m_cells[before].equal) {
            const std::size_t gaps = cell.column - m_cells[before].column - 1;
            best = std::max(best, afterGaps(scoreOf(before, bonuses), gaps) + bonus);
        }
    }
    if (latest.column + 1 == cell.column && latest.units + consecutiveUnits == unitsBefore) {
        best = std::max(best, scoreOf(cell.before, bonuses) + consecutiveBonus + bonus);
    }
    cell.score = best;
    return best;
}

/// The score with the last letter at the cell's column, after all that is skipped up to the end.
double ScoreCells::scoreAtEnd(CellIndex index, std::size_t lastLetter,
                              std::span<const BoundaryBonus> bonuses) {
    double score = scoreOf(index, bonuses);
    std::size_t column = m_cells[index].column;
    const auto skipUpTo = [&](std::size_t next) {
        score = afterGaps(score - gapCostAfterMatch, next - column - 1);
        column = next;
    };
    std::uint64_t later = ~std::uint64_t{1} << column % wordSize;
    for (std::size_t word = column / wordSize; word < m_places.words(); ++word) {
        for (std::uint64_t bits = m_places.ofLetter(lastLetter, word) & later; bits != 0;
             bits &= bits - 1) {
            skipUpTo(word * wordSize + static_cast<std::size_t>(std::countr_zero(bits)));
        }
        later = ~std::uint64_t{0};
    }
    if (column + 1 < bonuses.size()) {
        skipUpTo(bonuses.size() - 1);
    }
    return score;
}

template std::optional<double> ScoreCells::score(const QueryLetters&, const Latin1Key&);
template std::optional<double> ScoreCells::score(const QueryLetters&, const UnicodeKey&);

} // namespace quorvantel
