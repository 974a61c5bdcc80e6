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

    /// The list changed: the first row is selected and the mouse rests wherever it is, which is to
    /// be told soon. Returns whether the selection changed.
    bool reset();

    /// Where the mouse was found after the list had changed; absent when it is not over the panel
    /// and nothing more is known, so that it has moved when it comes to a row. Asking for it takes
    /// a round trip to the display server, which the new list need not wait for. A row that is
    /// hovered before that tells the place, too.
    void rest(std::optional<QPointF> mouse);

    /// The row that Return opens; absent when there are no results.
    std::optional<int> rowToOpen(int resultCount) const;

private:
    int m_selectedIndex = 0;
    bool m_navigatingByKeyboard = false;
    /// Where the mouse rests, no number for somewhere else; absent between a reset and the news
    /// about it.
    std::optional<QPointF> m_hoverBaseline = QPointF();
};

} // namespace quorvantel
