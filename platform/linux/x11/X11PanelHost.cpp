#include "platform/linux/x11/X11PanelHost.h"

#include "platform/linux/x11/X11PanelSurface.h"

namespace quorvantel::platform {

Qt::WindowFlags X11PanelHost::windowFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

std::unique_ptr<PanelSurface> X11PanelHost::makeSurface(const PanelContent& content) {
    return std::make_unique<X11PanelSurface>(content, m_keyboard, m_backdrop);
}

} // namespace quorvantel::platform
