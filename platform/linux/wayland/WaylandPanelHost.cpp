#include "platform/linux/wayland/WaylandPanelHost.h"

#include "platform/linux/wayland/LayerPanelSurface.h"
#include "platform/linux/wayland/ToplevelPanelSurface.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"

namespace quorvantel::platform {

namespace {

/// The first version in which a surface can change its layer, and the last one known.
constexpr WaylandGlobals::Versions shellVersions{2, 4};

} // namespace

void WaylandPanelHost::prepareToolkit() {
    // Qt leaves the role of windows with the flag Qt::BypassWindowManagerHint to others only when
    // told so, and ceases to draw a window whose frames the compositor does not ask for, as it does
    // not for those of a hidden panel; the panel's first frame would come too late.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    qputenv("QT_WAYLAND_FRAME_CALLBACK_TIMEOUT", "0");
}

WaylandPanelHost::WaylandPanelHost(const WaylandConnection& connection,
                                   const WaylandKeyboard& keyboard)
    : m_connection(connection), m_keyboard(keyboard) {}

Qt::WindowFlags WaylandPanelHost::windowFlags() const {
    const Qt::WindowFlags flags = Qt::Window | Qt::FramelessWindowHint;
    return hasLayers() ? flags | Qt::BypassWindowManagerHint : flags;
}

std::unique_ptr<PanelSurface> WaylandPanelHost::makeSurface(const PanelContent& content) {
    auto surface = makeKind(content);
    QObject::connect(surface.get(), &WaylandPanelSurface::keyboardReturning, surface.get(), [this] {
        if (beforeKeyboardReturns) {
            beforeKeyboardReturns();
        }
    });
    return surface;
}

std::unique_ptr<WaylandPanelSurface> WaylandPanelHost::makeKind(const PanelContent& content) const {
    if (!hasLayers()) {
        return std::make_unique<ToplevelPanelSurface>(content, m_connection, m_keyboard);
    }
    return std::make_unique<LayerPanelSurface>(
        content, m_connection, m_keyboard,
        WaylandPointer<zwlr_layer_shell_v1>(m_connection.globals().bind<zwlr_layer_shell_v1>(
            zwlr_layer_shell_v1_interface, shellVersions)));
}

bool WaylandPanelHost::hasLayers() const {
    return m_connection.globals().offers(zwlr_layer_shell_v1_interface, shellVersions.oldest);
}

} // namespace quorvantel::platform
