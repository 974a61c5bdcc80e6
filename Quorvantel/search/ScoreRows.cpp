#include "search/ScoreRows.h"

#include <utility>

namespace quorvantel {

double ScoreRows::score(std::u32string_view query, const SearchKeyView& key,
                        std::span<const size_t> firstColumns) {
    const size_t columns = key.letters.size() + 1;
    if (m_cells.size() < 4 * columns) {
        m_cells.resize(4 * columns);
    }
    const std::span<double> cells(m_cells);
    PlacementRow previous{cells.subspan(0, columns), cells.subspan(columns, columns)};
    PlacementRow current{cells.subspan(2 * columns, columns), cells.subspan(3 * columns, columns)};

    startPlacement(previous);
    for (size_t i = 0; i < query.size(); ++i) {
        advancePlacement(query[i], i + 1 == query.size(), firstColumns[i], key, previous, current);
        std::swap(previous, current);
    }
    return previous.best.back();
}

} // namespace quorvantel
