#include "search/ScoreMatrix.h"

#include "search/PlacementRow.h"

#include <cmath>
#include <vector>

namespace quorvantel {

namespace {

constexpr double tolerance = 1e-9;

/// All rows of a placement.
class Matrix {
public:
    Matrix(size_t rows, size_t columns)
        : m_columns(columns),
          m_matched(rows * columns, unreachable),
          m_best(rows * columns, unreachable) {}

    PlacementRow row(size_t i) {
        return {std::span(m_matched).subspan(i * m_columns, m_columns),
                std::span(m_best).subspan(i * m_columns, m_columns)};
    }

private:
    size_t m_columns;
    std::vector<double> m_matched;
    std::vector<double> m_best;
};

bool endsPlacement(const PlacementRow& row, size_t column) {
    return row.matched[column] > unreachable &&
           std::fabs(row.best[column] - row.matched[column]) < tolerance;
}

std::vector<int> backtrack(Matrix& matrix, size_t queryLength, size_t keyLength) {
    std::vector<int> positions(queryLength);
    size_t j = keyLength;
    for (size_t i = queryLength; i >= 1; --i) {
        const PlacementRow row = matrix.row(i);
        while (!endsPlacement(row, j)) {
            --j;
        }
        positions[i - 1] = static_cast<int>(j - 1);
        --j;
    }
    return positions;
}

} // namespace

FuzzyMatch bestPlacement(std::u32string_view query, const UnicodeKey& key,
                         std::span<const size_t> firstColumns) {
    Matrix matrix(query.size() + 1, key.letters.size() + 1);
    startPlacement(matrix.row(0));
    for (size_t i = 0; i < query.size(); ++i) {
        advancePlacement(query[i], i + 1 == query.size(), firstColumns[i], key, matrix.row(i),
                         matrix.row(i + 1));
    }
    return {matrix.row(query.size()).best.back(),
            backtrack(matrix, query.size(), key.letters.size())};
}

} // namespace quorvantel
