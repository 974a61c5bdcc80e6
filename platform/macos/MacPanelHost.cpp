#include "platform/macos/MacPanelHost.h"

#include "platform/macos/MacPanelSurface.h"

namespace quorvantel::platform {

Qt::WindowFlags MacPanelHost::windowFlags() const {
    // An ordinary window: the toolkit makes popups and tools windows of a kind of their own.
    return Qt::Window | Qt::FramelessWindowHint;
}

std::unique_ptr<PanelSurface> MacPanelHost::makeSurface(const PanelContent& content) {
    return std::make_unique<MacPanelSurface>(content, m_screens);
}

} // namespace quorvantel::platform
