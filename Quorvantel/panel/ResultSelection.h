#pragma once

#include <QPointF>

#include <optional>

namespace quorvantel {

/// Which result is selected, and how the keyboard and the mouse share the say: a model without a
/// window.
class ResultSelection {
public:
    int selectedIndex() const { return m_selectedIndex; }

    /// Whether the last change came from the arrow keys, so that the list is to follow it. Answers
    /// once for a change.
    bool takeKeyboardNavigation();

    /// One row down or up; stops at the ends. Returns whether the selection changed.
    bool moveDown(int resultCount);
    bool moveUp();

    /// The pointer came to a row. Selects it only once the mouse has left the place where it rested
    /// when the list last changed. Returns whether the selection changed.
    bool hover(int row, QPointF mouse);

    /// The list changed: the first row is selected and the mouse rests where it is. Returns whether
    /// the selection changed.
    bool reset(QPointF mouse);

    /// The row that Return opens; absent when there are no results.
    std::optional<int> rowToOpen(int resultCount) const;

private:
    int m_selectedIndex = 0;
    bool m_navigatingByKeyboard = false;
    QPointF m_hoverBaseline;
};

} // namespace quorvantel
