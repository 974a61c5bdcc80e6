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

constexpr int unreachable = std::numeric_limits<int>::min() / 2;

/// Next to no column.
constexpr std::uint32_t noColumn = std::numeric_limits<std::uint32_t>::max() - 1;

constexpr double unknown = std::numeric_limits<double>::quiet_NaN();

constexpr double leastScore = std::numeric_limits<double>::lowest();

} // namespace

template <class Letter>
std::optional<double> ScoreCells::score(const QueryLetters& query,
                                        const SearchKeyView<Letter>& key) {
    if (!m_places.find(query, key.letters)) {
        return std::nullopt;
    }
    start(query.size());
    placeAll(query, key.letters, key.bonuses);
    double best = leastScore;
    for (CellIndex i = m_rows[query.size()].best; i != none; i = m_cells[i].equal) {
        best = std::max(best, scoreAtEnd(i, query.size() - 1, key.bonuses));
    }
    return best;
}

void ScoreCells::start(std::size_t letters) {
    m_rows.assign(letters + 1, {unreachable, none, unreachable, none, noColumn, 0, 0});
    m_rows[letters].latenessStep = gapUnits - gapUnitsAfterMatch;
}

template <class Letter>
void ScoreCells::placeAll(const QueryLetters& query, std::span<const Letter> letters,
                          std::span<const BoundaryBonus> bonuses) {
    const std::span rows(m_rows);
    CellIndex count = 0;
    for (std::size_t word = 0; word < m_places.words(); ++word) {
        const std::size_t most = count + LetterPlaces::wordSize * query.size();
        if (m_cells.size() < most) {
            m_cells.resize(most);
        }
        const std::span cells(m_cells);
        for (std::uint64_t bits = m_places.ofAny(word); bits != 0; bits &= bits - 1) {
            const auto bit = static_cast<std::size_t>(std::countr_zero(bits));
            const std::size_t column = word * LetterPlaces::wordSize + bit;
            rows[0].bestUnits = (gapUnits - leadingGapUnits) * static_cast<int>(column) - gapUnits;
            // From the last one on, as no column has place for two.
            for (std::size_t letter = query.lastOf(letters[column]); letter != 0;
                 letter = query.previousOf(letter)) {
                if ((m_places.ofLetter(letter - 1, word) >> bit & 1) != 0) {
                    place(rows[letter - 1], rows[letter], cells, count++,
                          static_cast<std::uint32_t>(column), unitsOf(bonuses[column]));
                }
            }
        }
    }
}

inline void ScoreCells::place(const Row& before, Row& row, std::span<Cell> cells, CellIndex index,
                              std::uint32_t column, int bonus) {
    const int run =
        before.latestColumn + 1 == column ? before.latestUnits + consecutiveUnits : unreachable;
    const int fresh = before.bestUnits;
    const int units = (run > fresh ? run : fresh) + gapUnits + bonus;
    const int unitsAtEnd = units - row.lateness;
    const int earlierUnits = row.bestUnits;
    const CellIndex earlier = row.best;
    const CellIndex equal = unitsAtEnd == earlierUnits ? earlier : none;
    cells[index] = {column, units, before.best, before.latest, equal, unknown};
    // All bits if the earlier one stays the best: compilers would take a choice for a branch.
    const CellIndex stays = -static_cast<CellIndex>(unitsAtEnd < earlierUnits);
    row.best = (earlier & stays) | (index & ~stays);
    row.bestUnits = unitsAtEnd > earlierUnits ? unitsAtEnd : earlierUnits;
    row.latest = index;
    row.latestUnits = units;
    row.latestColumn = column;
    row.lateness += row.latenessStep;
}

/// The score with the cell's letter at its column.
double ScoreCells::scoreOf(CellIndex index, std::span<const BoundaryBonus> bonuses) {
    Cell& cell = m_cells[index];
    if (!std::isnan(cell.score)) {
        return cell.score;
    }
    const double bonus = valueOf(bonuses[cell.column]);
    if (cell.best == none) {
        cell.score = -leadingGapCost * static_cast<double>(cell.column) + bonus;
        return cell.score;
    }
    const int unitsBefore = cell.units - gapUnits - unitsOf(bonuses[cell.column]);
    double best = leastScore;
    if (m_cells[cell.best].units == unitsBefore) {
        for (CellIndex before = cell.best; before != none; before = m_cells[before].equal) {
            const std::size_t gaps = cell.column - m_cells[before].column - 1;
            best = std::max(best, afterGaps(scoreOf(before, bonuses), gaps) + bonus);
        }
    }
    const Cell& latest = m_cells[cell.latest];
    if (latest.column + 1 == cell.column && latest.units + consecutiveUnits == unitsBefore) {
        best = std::max(best, scoreOf(cell.latest, bonuses) + consecutiveBonus + bonus);
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
    std::uint64_t later = ~std::uint64_t{1} << column % LetterPlaces::wordSize;
    for (std::size_t word = column / LetterPlaces::wordSize; word < m_places.words(); ++word) {
        for (std::uint64_t bits = m_places.ofLetter(lastLetter, word) & later; bits != 0;
             bits &= bits - 1) {
            skipUpTo(word * LetterPlaces::wordSize +
                     static_cast<std::size_t>(std::countr_zero(bits)));
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
