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

constexpr std::size_t wordSize = 64;

/// What comes of it by gains and costs remains less than half of it.
constexpr int unreachable = std::numeric_limits<int>::min() / 2;
constexpr int leastReachable = unreachable / 2;

/// Next to no column.
constexpr std::uint32_t noColumn = std::numeric_limits<std::uint32_t>::max() - 1;

constexpr double unknown = std::numeric_limits<double>::quiet_NaN();

double afterColumnOfLastLetter(double score, std::size_t gaps) {
    return afterGaps(score - gapCostAfterMatch, gaps - 1);
}

} // namespace

template <class Letter>
std::optional<double> ScoreCells::score(const QueryLetters& query,
                                        const SearchKeyView<Letter>& key) {
    start(query.size());
    for (std::size_t offset = 0; offset < key.letters.size(); offset += wordSize) {
        const auto letters =
            key.letters.subspan(offset, std::min(wordSize, key.letters.size() - offset));
        reserve(wordSize * query.size());
        for (std::uint64_t bits = query.placesIn(letters); bits != 0; bits &= bits - 1) {
            const auto i = static_cast<std::size_t>(std::countr_zero(bits));
            const auto column = static_cast<std::uint32_t>(offset + i);
            const int bonus = unitsOf(key.bonuses[column]);
            m_rows[0].bestUnits = static_cast<int>(column) - gapUnits;
            // From the last one on, as no column has place for two.
            for (std::size_t letter = query.lastOf(letters[i]); letter != 0;
                 letter = query.previousOf(letter)) {
                place(letter, column, bonus);
            }
        }
    }
    const Row& last = m_rows[query.size()];
    if (last.bestUnits < leastReachable) {
        return std::nullopt;
    }
    double best = scoreAtEnd(last.best, key.bonuses);
    for (CellIndex equal = m_cells[last.best].equal; equal != none; equal = m_cells[equal].equal) {
        best = std::max(best, scoreAtEnd(equal, key.bonuses));
    }
    return best;
}

void ScoreCells::start(std::size_t letters) {
    m_rows.assign(letters + 1, {unreachable, none, unreachable, none, noColumn, 0});
    m_rows[letters].endMask = ~std::uint32_t{0};
    m_cellCount = 0;
    m_endCount = 0;
}

/// Makes room for as many more cells, and one that is not kept.
void ScoreCells::reserve(std::size_t cells) {
    if (m_cells.size() <= m_cellCount + cells) {
        m_cells.resize(m_cellCount + cells + 1);
        m_ends.resize(m_cells.size());
    }
}

void ScoreCells::place(std::size_t letter, std::uint32_t column, int bonus) {
    const Row& before = m_rows[letter - 1];
    Row& row = m_rows[letter];
    const int run =
        before.latestColumn + 1 == column ? before.latestUnits + consecutiveUnits : unreachable;
    const int units = std::max(before.bestUnits, run) + gapUnits + bonus;
    const std::uint32_t ends = m_endCount & row.endMask;
    const int unitsAtEnd = units - static_cast<int>(ends);
    const CellIndex equal = unitsAtEnd == row.bestUnits ? row.best : none;
    m_cells[m_cellCount] = {column, units, before.best, before.latest, equal, ends, unknown};
    m_ends[m_endCount] = column;
    row.best = unitsAtEnd >= row.bestUnits ? m_cellCount : row.best;
    row.bestUnits = std::max(unitsAtEnd, row.bestUnits);
    row.latest = m_cellCount;
    row.latestUnits = units;
    row.latestColumn = column;
    const std::uint32_t isReachable = units > leastReachable ? 1 : 0;
    m_cellCount += isReachable;
    m_endCount += isReachable & row.endMask;
}

/// The score with the cell's letter at its column, of which there is a placement.
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
    double best = std::numeric_limits<double>::lowest();
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
double ScoreCells::scoreAtEnd(CellIndex index, std::span<const BoundaryBonus> bonuses) {
    double score = scoreOf(index, bonuses);
    std::uint32_t column = m_cells[index].column;
    for (std::uint32_t end = m_cells[index].ends + 1; end < m_endCount; ++end) {
        score = afterColumnOfLastLetter(score, m_ends[end] - column);
        column = m_ends[end];
    }
    const std::size_t rest = bonuses.size() - 1 - column;
    return rest > 0 ? afterColumnOfLastLetter(score, rest) : score;
}

template std::optional<double> ScoreCells::score(const QueryLetters&, const Latin1Key&);
template std::optional<double> ScoreCells::score(const QueryLetters&, const UnicodeKey&);

} // namespace quorvantel
