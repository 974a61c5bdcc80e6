#include "platform/linux/wayland/WaylandWindowActivator.h"

#include <QWindow>

namespace quorvantel::platform {

void WaylandWindowActivator::activate(QWindow& window) {
    if (window.isActive()) {
        return;
    }
    if (window.isExposed()) {
        window.hide();
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
        window.show();
    }
    m_activation.activate(window);
}

QMargins WaylandWindowActivator::frameMargins(QWindow& window) {
    return window.frameMargins();
}

} // namespace quorvantel::platform
