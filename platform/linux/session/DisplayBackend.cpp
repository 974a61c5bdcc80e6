#include "platform/linux/session/DisplayBackend.h"

#ifdef QUORVANTEL_WAYLAND
#include "platform/linux/wayland/WaylandDisplayServer.h"
#endif
#ifdef QUORVANTEL_X11
#include "platform/linux/x11/X11DisplayServer.h"
#endif

#include <vector>

namespace quorvantel::platform {

std::span<const DisplayBackend> displayBackends() {
    static const std::vector<DisplayBackend> backends{
#ifdef QUORVANTEL_WAYLAND
        {DisplayProtocol::Wayland, "wayland", WaylandDisplayServer::reach,
         WaylandPanelHost::prepareToolkit, WaylandDisplayServer::connect},
#endif
#ifdef QUORVANTEL_X11
        {DisplayProtocol::X11, "xcb", X11DisplayServer::reach, [] {}, X11DisplayServer::connect},
#endif
    };
    return backends;
}

} // namespace quorvantel::platform
