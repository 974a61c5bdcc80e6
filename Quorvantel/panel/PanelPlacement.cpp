#include "panel/PanelPlacement.h"

#include <QDebug>

#include <algorithm>
#include <cmath>

namespace quorvantel {

namespace {

/// Window systems round frames to pixels.
constexpr double roundingTolerance = 0.5;

/// How far below the top of the visible frame the panel hangs, as a part of its height.
constexpr double topMargin = 0.2;

/// Whether a rectangle contains a point. Its upper and right edges belong to its neighbours, so
/// that a point between two screens is on one of them only.
bool contains(const QRectF& rectangle, QPointF point) {
    return point.x() >= rectangle.left() && point.x() < rectangle.right() &&
           point.y() >= rectangle.top() && point.y() < rectangle.bottom();
}

/// Whether a panel with this top-left corner hangs inside a rectangle, if only by a point. A corner
/// on the line between two screens, one above the other, is therefore on the lower one, and one at
/// the very top of a screen is on that screen.
bool holdsCorner(const QRectF& rectangle, QPointF corner) {
    return corner.x() >= rectangle.left() && corner.x() < rectangle.right() &&
           corner.y() > rectangle.top() && corner.y() <= rectangle.bottom();
}

QPointF topLeft(const QRectF& frame) {
    return {frame.left(), frame.bottom()};
}
QPointF origin(const QRectF& frame) {
    return {frame.left(), frame.top()};
}

std::optional<platform::Screen> screenAt(QPointF point,
                                         const std::vector<platform::Screen>& screens) {
    const auto found = std::ranges::find_if(
        screens, [point](const platform::Screen& screen) { return contains(screen.frame, point); });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

/// The visible frame that the panel's top-left corner is in, or else the given one.
QRectF visibleFrameAt(QPointF corner, const std::vector<platform::Screen>& screens,
                      const QRectF& otherwise) {
    const auto found = std::ranges::find_if(screens, [corner](const platform::Screen& screen) {
        return holdsCorner(screen.visibleFrame, corner);
    });
    return found == screens.end() ? otherwise : found->visibleFrame;
}

} // namespace

QRectF PanelPlacement::show(const std::vector<platform::Screen>& screens,
                            const platform::Screen& target) {
    m_anchorVisibleFrame = target.visibleFrame;
    if (m_sessionDraggedTopLeft) {
        m_anchorTopLeft = *m_sessionDraggedTopLeft;
        m_anchorVisibleFrame = visibleFrameAt(m_anchorTopLeft, screens, target.visibleFrame);
    } else {
        const QRectF& visible = target.visibleFrame;
        m_anchorTopLeft = QPointF(visible.center().x() - width / 2,
                                  visible.bottom() - topMargin * visible.height());
    }
    return placed(frameForHeight(initialHeight, target));
}

QRectF PanelPlacement::resize(double height, const platform::Screen& target) {
    return placed(frameForHeight(height, target));
}

void PanelPlacement::moved(const QRectF& frame, const std::vector<platform::Screen>& screens) {
    const QPointF distance = origin(frame) - m_lastPlacedOrigin;
    if (std::abs(distance.x()) <= roundingTolerance &&
        std::abs(distance.y()) <= roundingTolerance) {
        return;
    }
    m_anchorTopLeft = topLeft(frame);
    m_sessionDraggedTopLeft = m_anchorTopLeft;
    m_anchorVisibleFrame = visibleFrameAt(m_anchorTopLeft, screens, m_anchorVisibleFrame);
    m_lastPlacedOrigin = origin(frame);
}

QRectF PanelPlacement::frameForHeight(double requestedHeight,
                                      const platform::Screen& target) const {
    const QRectF visible =
        m_anchorVisibleFrame == QRectF() ? target.visibleFrame : m_anchorVisibleFrame;
    const double height = std::min(requestedHeight, visible.height());
    double y = std::max(m_anchorTopLeft.y() - height, visible.top());
    if (y + height > visible.bottom()) {
        y = visible.bottom() - height;
    }
    double x = visible.left();
    if (visible.width() >= width) {
        x = std::min(std::max(visible.left(), m_anchorTopLeft.x()), visible.right() - width);
    }
    return {x, y, width, height};
}

QRectF PanelPlacement::placed(const QRectF& frame) {
    m_lastPlacedOrigin = origin(frame);
    return frame;
}

platform::Screen targetScreen(QPointF mouse, const std::vector<platform::Screen>& screens,
                              const std::optional<platform::Screen>& main) {
    if (const auto underMouse = screenAt(mouse, screens)) {
        return *underMouse;
    }
    if (main) {
        return *main;
    }
    if (screens.empty()) {
        qFatal("Quorvantel: there is no screen to show the panel on");
    }
    return screens.front();
}

std::optional<platform::Screen> screenOf(const QRectF& panel,
                                         const std::vector<platform::Screen>& screens) {
    return screenAt(panel.center(), screens);
}

} // namespace quorvantel
