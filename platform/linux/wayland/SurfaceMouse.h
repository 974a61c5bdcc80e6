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

    /// Where the mouse was at an event of the window.
    QPointF position(const QMouseEvent& event) const;

    /// Absent while the mouse is not over the window.
    const std::optional<QPointF>& lastPosition() const { return m_lastPosition; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const WaylandConnection& m_connection;
    QPoint m_requestedCorner;
    /// Where the window is in the events that come now.
    QPoint m_corner;
    std::optional<QPointF> m_lastPosition;
    std::function<void()> m_carriedOut = [this] { m_corner = m_requestedCorner; };
    WaylandPointer<wl_callback> m_awaited;
};

} // namespace quorvantel::platform
