#include "panel/ResultListView.h"

#include "drawing/Motion.h"
#include "panel/LauncherLayout.h"

#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <utility>

namespace quorvantel {

namespace {

using namespace std::chrono_literals;
using namespace LauncherLayout;

constexpr auto scrollDuration = 100ms;
/// One step of a wheel is 120 units and scrolls by this many points.
constexpr int pointsPerWheelStep = 2 * (rowHeight + rowSpacing);
constexpr int unitsPerWheelStep = 120;

} // namespace

ResultListView::ResultListView(const ThemedRoot& theme, IconCache& icons, QWidget* parent)
    : QWidget(parent), m_theme(theme), m_icons(icons) {
    setMouseTracking(true);
    m_scrolling.setDuration(static_cast<int>(std::chrono::milliseconds(scrollDuration).count()));
    m_scrolling.setStartValue(0.0);
    m_scrolling.setEndValue(1.0);
    connect(&m_scrolling, &QVariantAnimation::valueChanged, this, [this](const QVariant& progress) {
        scrollTo(qRound(m_motion.positionAt(progress.toDouble())));
    });
    // The rows of a full list exist before the first keystroke asks for them.
    for (std::size_t slot = 0; slot <= maximumVisibleRows; ++slot) {
        rowView(slot).hide();
    }
}

void ResultListView::setResults(const SearchResults& results) {
    m_results = results;
    m_scrolling.stop();
    m_scrollOffset = 0;
    m_hoveredRow = -1;
    m_enteredRow = -1;
    m_pressedRow = -1;
    bindRows();
    Q_EMIT resultsChanged();
}

void ResultListView::refreshResults(const SearchResults& results) {
    m_results = results;
    bindRows();
    // An icon that was missing may be there by now.
    update();
}

void ResultListView::setSelectedIndex(int index) {
    m_selectedIndex = index;
    bindRows();
    Q_EMIT selectionChanged();
}

void ResultListView::scrollToCentre(int row) {
    if (row < 0 || row >= static_cast<int>(m_results.size())) {
        return;
    }
    const int centred = std::clamp(rowTop(row) + rowHeight / 2 - height() / 2, 0, maximumOffset());
    if (!isAnimated(*this)) {
        scrollTo(centred);
        return;
    }
    double velocity = 0;
    if (m_scrolling.state() == QAbstractAnimation::Running) {
        velocity = m_motion.velocityAt(m_scrolling.currentValue().toDouble());
        // At a fast repetition of the key the list lags behind by more than it shows.
        scrollTo(nearestOffsetThatShows(row));
    }
    m_scrolling.stop();
    m_motion = {.from = static_cast<double>(m_scrollOffset),
                .to = static_cast<double>(centred),
                .velocity = velocity};
    m_scrolling.start();
}

int ResultListView::rowAt(const QPoint& point) const {
    const int y = point.y() + m_scrollOffset - listPadding;
    const int row = y / (rowHeight + rowSpacing);
    const bool isOnRow = y >= 0 && y % (rowHeight + rowSpacing) < rowHeight;
    const bool isInside = rect().adjusted(listPadding, 0, -listPadding, 0).contains(point);
    return isOnRow && isInside && row < static_cast<int>(m_results.size()) ? row : -1;
}

QRect ResultListView::rowRect(int row) const {
    return {listPadding, rowTop(row) - m_scrollOffset, width() - 2 * listPadding, rowHeight};
}

void ResultListView::enterEvent(QEnterEvent* event) {
    // Nothing is said to be hovered yet, for it may be the list that came to a mouse at rest.
    if (const int row = rowAt(event->position().toPoint()); row >= 0) {
        Q_EMIT rowEntered(row);
    }
}

void ResultListView::leaveEvent(QEvent* /*event*/) {
    m_pointer.reset();
    m_enteredRow = -1;
    setHoveredRow(-1);
}

void ResultListView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton && m_pressedRow < 0) {
        // The panel is being dragged.
        event->ignore();
        return;
    }
    pointAt(event->position().toPoint());
}

void ResultListView::pointAt(const QPoint& point) {
    m_pointer = point;
    const int row = rowAt(point);
    setHoveredRow(row);
    if (row == m_enteredRow) {
        return;
    }
    if (row >= 0) {
        Q_EMIT rowEntered(row);
    }
    m_enteredRow = row == m_selectedIndex ? row : -1;
}

void ResultListView::mousePressEvent(QMouseEvent* event) {
    m_pressedRow = event->button() == Qt::LeftButton ? rowAt(event->position().toPoint()) : -1;
    if (m_pressedRow < 0) {
        // Between the rows the panel can be dragged.
        event->ignore();
    }
}

void ResultListView::mouseReleaseEvent(QMouseEvent* event) {
    const int pressedRow = std::exchange(m_pressedRow, -1);
    if (pressedRow < 0) {
        event->ignore();
        return;
    }
    if (event->button() == Qt::LeftButton && rowAt(event->position().toPoint()) == pressedRow) {
        Q_EMIT rowClicked(pressedRow);
    }
}

void ResultListView::resizeEvent(QResizeEvent* /*event*/) {
    m_scrollOffset = std::clamp(m_scrollOffset, 0, maximumOffset());
    bindRows();
}

void ResultListView::wheelEvent(QWheelEvent* event) {
    m_scrolling.stop();
    int points = event->pixelDelta().y();
    if (event->pixelDelta().isNull()) {
        // Fine wheels and touchpads turn by a fraction of a point at a time.
        m_wheelRemainder += event->angleDelta().y() * pointsPerWheelStep;
        points = m_wheelRemainder / unitsPerWheelStep;
        m_wheelRemainder %= unitsPerWheelStep;
    }
    m_pointer.reset();
    scrollTo(m_scrollOffset - points);
    pointAt(event->position().toPoint());
    event->accept();
}

int ResultListView::maximumOffset() const {
    return std::max(0, contentHeight(static_cast<int>(m_results.size())) - height());
}

void ResultListView::scrollTo(int offset) {
    m_scrollOffset = std::clamp(offset, 0, maximumOffset());
    if (m_pointer) {
        const int row = rowAt(*m_pointer);
        if (std::exchange(m_hoveredRow, row) != row) {
            m_enteredRow = -1;
        }
    }
    bindRows();
}

int ResultListView::nearestOffsetThatShows(int row) const {
    const int top = rowTop(row) - listPadding;
    const int bottom = rowTop(row) + rowHeight + listPadding;
    return std::min(std::max(m_scrollOffset, bottom - height()), top);
}

void ResultListView::setHoveredRow(int row) {
    if (std::exchange(m_hoveredRow, row) != row) {
        bindRows();
    }
}

void ResultListView::bindRows() {
    const int stride = rowHeight + rowSpacing;
    const int count = static_cast<int>(m_results.size());
    const int first = std::max(0, (m_scrollOffset - listPadding) / stride);
    const int end = std::min(count, (m_scrollOffset + height()) / stride + 1);
    std::size_t slot = 0;
    for (int row = first; row < end; ++row) {
        ResultRowView& view = rowView(slot++);
        view.setGeometry(rowRect(row));
        view.setTarget(m_results[static_cast<std::size_t>(row)]);
        view.setSelected(row == m_selectedIndex);
        view.setHovered(row == m_hoveredRow);
        view.show();
    }
    for (; slot < m_rowViews.size(); ++slot) {
        m_rowViews[slot]->hide();
    }
}

ResultRowView& ResultListView::rowView(std::size_t slot) {
    if (slot == m_rowViews.size()) {
        m_rowViews.push_back(new ResultRowView(m_theme, m_icons, this));
    }
    return *m_rowViews[slot];
}

} // namespace quorvantel
