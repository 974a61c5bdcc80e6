#include "panel/PanelPlacement.h"

#include <algorithm>
#include <cmath>

namespace quorvantel {

namespace {

/// Window systems round frames to pixels.
constexpr double roundingTolerance = 0.5;

/// How far below the top of the visible frame the panel hangs, as a part of its height.
constexpr double topMargin = 0.2;

/// Whether a panel with this top-left corner hangs inside a rectangle, if only by a point. A corner
/// on the line between two screens, one above the other, is therefore on the lower one, and one at
/// the very top of a screen is on that screen.
bool holdsCorner(const QRectF& rectangle, QPointF corner) {
    return corner.x() >= rectangle.left() && corner.x() < rectangle.right() &&
           corner.y() > rectangle.top() && corner.y() <= rectangle.bottom();
}

/// The screen in whose visible frame the panel's top-left corner is, or else the given one.
platform::Screen screenAt(QPointF corner, const std::vector<platform::Screen>& screens,
                          const platform::Screen& otherwise) {
    const auto found = std::ranges::find_if(screens, [corner](const platform::Screen& screen) {
        return holdsCorner(screen.visibleFrame, corner);
    });
    return found == screens.end() ? otherwise : *found;
}

} // namespace

QRectF PanelPlacement::show(const std::vector<platform::Screen>& screens,
                            const platform::Screen& target) {
    m_anchorScreen = target;
    if (m_sessionDraggedTopLeft) {
        m_anchorTopLeft = *m_sessionDraggedTopLeft;
        m_anchorScreen = screenAt(m_anchorTopLeft, screens, target);
    } else {
        const QRectF& visible = target.visibleFrame;
        m_anchorTopLeft = QPointF(visible.center().x() - width / 2,
                                  visible.bottom() - topMargin * visible.height());
    }
    return resize(initialHeight);
}

QRectF PanelPlacement::resize(double height) {
    m_frame = frameForHeight(height);
    return m_frame;
}

void PanelPlacement::moved(const QRectF& frame, const std::vector<platform::Screen>& screens) {
    const QPointF distance = frame.topLeft() - m_frame.topLeft();
    if (std::abs(distance.x()) <= roundingTolerance &&
        std::abs(distance.y()) <= roundingTolerance) {
        return;
    }
    m_frame = frame;
    m_anchorTopLeft = frame.bottomLeft();
    m_sessionDraggedTopLeft = m_anchorTopLeft;
    m_anchorScreen = screenAt(m_anchorTopLeft, screens, *m_anchorScreen);
}

QRectF PanelPlacement::frameForHeight(double requestedHeight) const {
    const QRectF& visible = m_anchorScreen->visibleFrame;
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

QRect fromTopLeft(const QRectF& frame, const platform::Screen& screen) {
    const QPointF corner(frame.left() - screen.frame.left(),
                         screen.frame.bottom() - frame.bottom());
    return QRectF(corner, frame.size()).toRect();
}

} // namespace quorvantel
