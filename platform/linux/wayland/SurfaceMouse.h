#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

#include <QObject>
#include <QPointF>

#include <functional>
#include <optional>

class QMouseEvent;
class QWindow;

namespace quorvantel::platform {

class WaylandConnection;

/// Where the mouse is over a window that moves. A Wayland compositor tells of the mouse only while
/// it is over a window of the client's, and from that window's corner.
///
/// The positions here are on a plane that stays where it is; its origin is the output's.
class SurfaceMouse : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the object.
    SurfaceMouse(QWindow& window, const WaylandConnection& connection);

    /// The client has asked for the window's top-left corner to be here, and committed it.
    void moved(const QPoint& corner);

    /// Whether the compositor tells of the mouse, as long as a button is down, from where the
    /// window was when it went down. Wayland leaves that open: sway does, KWin does not.
    void setFixedWhilePressed(bool isFixed) { m_isFixedWhilePressed = isFixed; }

    /// Where the mouse was at an event of the window.
    QPointF position(const QMouseEvent& event) const;

    /// Absent while the mouse is not over the window.
    const std::optional<QPointF>& lastPosition() const { return m_lastPosition; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();

    const WaylandConnection& m_connection;
    QPoint m_requestedCorner;
    /// Where the compositor has the window.
    QPoint m_carriedOutCorner;
    /// Where the window is in the events that come now.
    QPoint m_corner;
    std::optional<QPointF> m_lastPosition;
    bool m_isFixedWhilePressed = false;
    bool m_isPressed = false;
    std::function<void()> m_carriedOut = [this] {
        m_carriedOutCorner = m_requestedCorner;
        follow();
    };
    WaylandPointer<wl_callback> m_awaited;
};

} // namespace quorvantel::platform
