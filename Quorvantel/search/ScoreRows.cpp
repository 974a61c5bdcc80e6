#include "search/ScoreRows.h"

#include "search/AfterGaps.h"
#include "search/PlacementCosts.h"

#include <algorithm>
#include <utility>

namespace quorvantel {

template <class Letter>
std::optional<double> ScoreRows::score(std::u32string_view query,
                                       const SearchKeyView<Letter>& key) {
    if (!m_places.find(query, key.letters)) {
        return std::nullopt;
    }
    start(query.size() == 1, key.bonuses);
    for (std::size_t letter = 1; letter < query.size(); ++letter) {
        std::swap(m_previous, m_current);
        advance(letter, letter + 1 == query.size(), key.bonuses);
    }
    return bestAt(key.letters.size() - 1, m_current.back(), true);
}

void ScoreRows::start(bool isLast, std::span<const BoundaryBonus> bonuses) {
    m_current.clear();
    m_places.forEach(0, [&](std::size_t column) {
        append(column, -leadingGapCost * static_cast<double>(column) + valueOf(bonuses[column]),
               isLast);
    });
}

void ScoreRows::advance(std::size_t letter, bool isLast, std::span<const BoundaryBonus> bonuses) {
    m_current.clear();
    auto before = m_previous.cbegin();
    m_places.forEach(letter, [&](std::size_t column) {
        while (before + 1 != m_previous.cend() && (before + 1)->column < column) {
            ++before;
        }
        const double bonus = valueOf(bonuses[column]);
        double matched = bestAt(column - 1, *before, false) + bonus;
        if (before->column + 1 == column) {
            matched = std::max(before->matched + consecutiveBonus + bonus, matched);
        }
        append(column, matched, isLast);
    });
}

void ScoreRows::append(std::size_t column, double matched, bool isLast) {
    const double best =
        m_current.empty() ? matched : std::max(matched, bestAt(column, m_current.back(), isLast));
    m_current.push_back({column, matched, best});
}

/// The best score at a column from a cell's own on, up to where the letter is next.
double ScoreRows::bestAt(std::size_t column, const Cell& cell, bool isLast) {
    const std::size_t gaps = column - cell.column;
    if (isLast && gaps > 0) {
        return afterGaps(cell.best - gapCostAfterMatch, gaps - 1);
    }
    return afterGaps(cell.best, gaps);
}

template std::optional<double> ScoreRows::score(std::u32string_view, const Latin1Key&);
template std::optional<double> ScoreRows::score(std::u32string_view, const UnicodeKey&);

} // namespace quorvantel
