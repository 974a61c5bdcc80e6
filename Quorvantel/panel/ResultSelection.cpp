#include "panel/ResultSelection.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quorvantel {

bool ResultSelection::takeKeyboardNavigation() {
    return std::exchange(m_navigatingByKeyboard, false);
}

bool ResultSelection::moveDown(int resultCount) {
    if (m_selectedIndex >= std::max(resultCount - 1, 0)) {
        return false;
    }
    m_navigatingByKeyboard = true;
    ++m_selectedIndex;
    return true;
}

bool ResultSelection::moveUp() {
    if (m_selectedIndex < 1) {
        return false;
    }
    m_navigatingByKeyboard = true;
    --m_selectedIndex;
    return true;
}

bool ResultSelection::hover(int row, QPointF mouse) {
    if (!m_hoverBaseline) {
        rest(mouse);
        return false;
    }
    // Exact on purpose, unlike the fuzzy comparison of QPointF: one point of movement counts.
    const bool hasMoved = mouse.x() != m_hoverBaseline->x() || mouse.y() != m_hoverBaseline->y();
    if (!hasMoved) {
        return false;
    }
    return std::exchange(m_selectedIndex, row) != row;
}

bool ResultSelection::reset() {
    m_hoverBaseline.reset();
    return std::exchange(m_selectedIndex, 0) != 0;
}

void ResultSelection::rest(std::optional<QPointF> mouse) {
    constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
    if (!m_hoverBaseline) {
        m_hoverBaseline = mouse.value_or(QPointF(nowhere, nowhere));
    }
}

std::optional<int> ResultSelection::rowToOpen(int resultCount) const {
    if (resultCount == 0) {
        return std::nullopt;
    }
    return std::min(resultCount - 1, m_selectedIndex);
}

} // namespace quorvantel
