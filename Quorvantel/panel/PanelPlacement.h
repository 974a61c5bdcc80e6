#pragma once

#include "platform/Screens.h"

#include <QPointF>
#include <QRect>
#include <QRectF>

#include <optional>
#include <vector>

namespace quorvantel {

/// Where the panel goes: a model without a window.
///
/// All rectangles are in the plane of `platform::Screen`: points, the origin at the bottom-left, y
/// growing upward. The panel hangs from an anchor, its top-left corner; it grows and shrinks
/// downward and is pulled back into the visible frame where it would leave it, without moving the
/// anchor.
class PanelPlacement {
public:
    static constexpr double width = 640;
    /// The height of the search field alone, with which every showing begins.
    static constexpr double initialHeight = 56;

    /// The frame for a new showing: where the user dragged the panel to, or centred in the upper
    /// part of the target screen.
    QRectF show(const std::vector<platform::Screen>& screens, const platform::Screen& target);

    /// The frame for another height at the same anchor. The panel must have been shown before.
    QRectF resize(double height);

    /// Takes note of where the window is now. A place that differs from the one that this model
    /// gave it last by more than the rounding of window systems is where the user dragged it.
    void moved(const QRectF& frame, const std::vector<platform::Screen>& screens);

    /// Where the panel is.
    const QRectF& frame() const { return m_frame; }

    /// The screen that the anchor is on; absent before the first showing.
    const std::optional<platform::Screen>& screen() const { return m_anchorScreen; }

    /// Where the user dragged the panel's top-left corner to during this run.
    const std::optional<QPointF>& sessionDraggedTopLeft() const { return m_sessionDraggedTopLeft; }

private:
    QRectF frameForHeight(double height) const;

    QPointF m_anchorTopLeft;
    std::optional<platform::Screen> m_anchorScreen;
    std::optional<QPointF> m_sessionDraggedTopLeft;
    QRectF m_frame;
};

/// A frame in the plane of the screens, as seen from the top-left corner of one of them: in whole
/// points, y growing downward.
QRect fromTopLeft(const QRectF& frame, const platform::Screen& screen);

} // namespace quorvantel
