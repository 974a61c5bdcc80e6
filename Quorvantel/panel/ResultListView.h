#pragma once

#include "drawing/IconCache.h"
#include "panel/ResultRowView.h"
#include "panel/ScrollMotion.h"
#include "search/SearchResults.h"
#include "theme/ThemedRoot.h"

#include <QVariantAnimation>
#include <QWidget>

#include <optional>
#include <vector>

namespace quorvantel {

/// The scrolling list of results, which shows no scroll bar.
///
/// Only the rows in sight exist: a handful of row views is bound to whatever targets are scrolled
/// into view, so ten thousand results scroll like ten.
class ResultListView : public QWidget {
    Q_OBJECT

public:
    /// `theme` and `icons` must outlive the list.
    ResultListView(const ThemedRoot& theme, IconCache& icons, QWidget* parent = nullptr);

    /// Shows other results, from the first one on.
    void setResults(const SearchResults& results);

    const SearchResults& results() const { return m_results; }

    /// Shows newer values of the same results, with other names or icons, where they are.
    void refreshResults(const SearchResults& results);

    void setSelectedIndex(int index);
    int selectedIndex() const { return m_selectedIndex; }

    /// Scrolls, in a tenth of a second, until the row is in the middle or the list ends. While it
    /// still scrolls for another row, as when a key repeats itself, the row is in sight at once.
    void scrollToCentre(int row);

    /// How far the content is scrolled, in points.
    int scrollOffset() const { return m_scrollOffset; }

    /// The row at a point of this widget; -1 between the rows and beyond them.
    int rowAt(const QPoint& point) const;

    /// Where a row is, in this widget's coordinates, even if it is out of sight.
    QRect rowRect(int row) const;

Q_SIGNALS:
    void resultsChanged();
    /// Another row is selected, or what is selected may be another result.
    void selectionChanged();
    /// The mouse moved onto another row, came to be in the list, or moved for the first time since
    /// the list was scrolled and another row came under it.
    void rowEntered(int row);
    /// The user opens the row, by a click or through assistive technology.
    void rowClicked(int row);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int maximumOffset() const;
    void scrollTo(int offset);
    int nearestOffsetThatShows(int row) const;
    void pointAt(const QPoint& point);
    void setHoveredRow(int row);
    void bindRows();
    ResultRowView& rowView(std::size_t slot);

    const ThemedRoot& m_theme;
    IconCache& m_icons;
    SearchResults m_results;
    /// Row views in the order in which they are needed; more than are in sight are hidden.
    std::vector<ResultRowView*> m_rowViews;
    int m_selectedIndex = 0;
    /// The row under the pointer.
    int m_hoveredRow = -1;
    /// The row that the mouse came to and selected; -1 once another was scrolled under it.
    int m_enteredRow = -1;
    int m_pressedRow = -1;
    int m_scrollOffset = 0;
    /// Where the pointer is inside this widget; absent while it is elsewhere.
    std::optional<QPoint> m_pointer;
    /// What the wheel was turned without coming to a whole point yet, in points times units.
    int m_wheelRemainder = 0;
    /// Runs from 0 to 1 while the list scrolls, as `m_motion` says.
    QVariantAnimation m_scrolling{this};
    ScrollMotion m_motion;
};

} // namespace quorvantel
