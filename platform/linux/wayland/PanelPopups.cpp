#include "platform/linux/wayland/PanelPopups.h"

#include "platform/PanelSurface.h"
#include "platform/linux/wayland/WaylandConnection.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

bool isPopup(const QWindow& window) {
    return window.type() == Qt::Popup || window.type() == Qt::ToolTip;
}

} // namespace

PanelPopups::PanelPopups(const PanelSurface& panel, const WaylandConnection& connection,
                         MakeRole makeRole)
    : m_panel(panel), m_connection(connection), m_makeRole(std::move(makeRole)) {
    qGuiApp->installEventFilter(this);
}

bool PanelPopups::isAnyOpen() const {
    return std::ranges::any_of(m_roles, [](const auto& entry) { return entry.second != nullptr; });
}

bool PanelPopups::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWindowType()) {
        takeOver(static_cast<QWindow&>(*watched), event);
    }
    return QObject::eventFilter(watched, event);
}

void PanelPopups::takeOver(QWindow& window, QEvent* event) {
    switch (event->type()) {
    case QEvent::PlatformSurface:
        if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
            m_roles.erase(&window);
        } else if (isPopup(window) && m_panel.isVisible()) {
            // Qt is to give it no role of its own.
            window.setFlag(Qt::BypassWindowManagerHint);
            m_roles.insert({&window, nullptr});
        }
        break;
    case QEvent::Show:
        // The window is told before the compositor is.
        if (const auto role = m_roles.find(&window); role != m_roles.end()) {
            role->second = m_makeRole(*WaylandConnection::surfaceOf(window));
            role->second->setSize(window.size());
            role->second->setPosition(m_origin + window.position());
            role->second->setTakesKeyboard(false);
            role->second->awaitConfigure(m_connection.display());
            Q_EMIT changed();
        }
        break;
    case QEvent::Hide:
        if (const auto role = m_roles.find(&window); role != m_roles.end()) {
            role->second.reset();
            Q_EMIT changed();
        }
        break;
    default:
        break;
    }
}

} // namespace quorvantel::platform
