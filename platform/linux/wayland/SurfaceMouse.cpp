#include "platform/linux/wayland/SurfaceMouse.h"

#include "platform/linux/wayland/WaylandConnection.h"

#include <QMouseEvent>
#include <QWindow>

namespace quorvantel::platform {

SurfaceMouse::SurfaceMouse(QWindow& window, const WaylandConnection& connection)
    : m_connection(connection) {
    window.installEventFilter(this);
}

void SurfaceMouse::moved(const QPoint& corner) {
    m_requestedCorner = corner;
    // What the mouse does until the compositor has moved the window is told from its old place.
    m_awaited = m_connection.afterRequests(m_carriedOut);
}

QPointF SurfaceMouse::position(const QMouseEvent& event) const {
    return event.position() + m_corner;
}

bool SurfaceMouse::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isPressed = true;
        [[fallthrough]];
    case QEvent::Enter:
    case QEvent::MouseMove:
        m_lastPosition = static_cast<QSinglePointEvent*>(event)->position() + m_corner;
        break;
    case QEvent::MouseButtonRelease:
        m_isPressed = static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
        follow();
        break;
    case QEvent::Hide:
        m_isPressed = false;
        follow();
        [[fallthrough]];
    case QEvent::Leave:
        m_lastPosition.reset();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void SurfaceMouse::follow() {
    if (!m_isPressed || !m_isFixedWhilePressed) {
        m_corner = m_carriedOutCorner;
    }
}

} // namespace quorvantel::platform
