#pragma once

#include "platform/Screens.h"

#include <QPointF>
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

    /// The frame for another height at the same anchor.
    QRectF resize(double height, const platform::Screen& target);

    /// Takes note of where the window is now. A place that differs from the one that this model
    /// gave it last by more than the rounding of window systems is where the user dragged it.
    void moved(const QRectF& frame, const std::vector<platform::Screen>& screens);

    /// Where the user dragged the panel's top-left corner to during this run.
    const std::optional<QPointF>& sessionDraggedTopLeft() const { return m_sessionDraggedTopLeft; }

private:
    QRectF frameForHeight(double height, const platform::Screen& target) const;
    QRectF placed(const QRectF& frame);

    QPointF m_anchorTopLeft;
    /// The visible frame of the anchor's screen; the zero rectangle while it is not known.
    QRectF m_anchorVisibleFrame;
    std::optional<QPointF> m_sessionDraggedTopLeft;
    QPointF m_lastPlacedOrigin;
};

/// The screen to show the panel on: the first under the mouse, else the main one, else the first.
/// There must be a screen.
platform::Screen targetScreen(QPointF mouse, const std::vector<platform::Screen>& screens,
                              const std::optional<platform::Screen>& main);

/// The screen that a panel with this frame is on, by its centre; absent when it is on none.
std::optional<platform::Screen> screenOf(const QRectF& panel,
                                         const std::vector<platform::Screen>& screens);

} // namespace quorvantel
