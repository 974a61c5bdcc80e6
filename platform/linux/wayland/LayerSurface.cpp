#include "platform/linux/wayland/LayerSurface.h"

#include "platform/linux/wayland/WaylandQueue.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"

#include <wayland-client-protocol.h>

namespace quorvantel::platform {

namespace {

std::uint32_t valueOf(LayerSurface::Layer layer) {
    switch (layer) {
    case LayerSurface::Layer::Background:
        return ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND;
    case LayerSurface::Layer::Top:
        return ZWLR_LAYER_SHELL_V1_LAYER_TOP;
    case LayerSurface::Layer::Overlay:
        return ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY;
    }
    Q_UNREACHABLE();
}

} // namespace

LayerSurface::LayerSurface(zwlr_layer_shell_v1& shell, wl_surface& surface, wl_output* output)
    : m_role(zwlr_layer_shell_v1_get_layer_surface(&shell, &surface, output,
                                                   ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "launcher")),
      m_surface(surface) {
    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void* self, zwlr_layer_surface_v1* /*role*/, std::uint32_t serial,
               std::uint32_t /*width*/,
               std::uint32_t /*height*/) { static_cast<LayerSurface*>(self)->configure(serial); },
        .closed =
            [](void* self, zwlr_layer_surface_v1* /*role*/) {
                static_cast<LayerSurface*>(self)->close();
            },
    };
    zwlr_layer_surface_v1_add_listener(m_role.get(), &listener, this);
    zwlr_layer_surface_v1_set_anchor(m_role.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP |
                                                       ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    constexpr std::int32_t ignoresBars = -1;
    zwlr_layer_surface_v1_set_exclusive_zone(m_role.get(), ignoresBars);
}

void LayerSurface::setPosition(const QPoint& position) {
    zwlr_layer_surface_v1_set_margin(m_role.get(), position.y(), 0, 0, position.x());
}

void LayerSurface::setSize(const QSize& size) {
    zwlr_layer_surface_v1_set_size(m_role.get(), static_cast<std::uint32_t>(size.width()),
                                   static_cast<std::uint32_t>(size.height()));
}

void LayerSurface::setLayer(Layer layer) {
    zwlr_layer_surface_v1_set_layer(m_role.get(), valueOf(layer));
}

void LayerSurface::setTakesKeyboard(bool takesKeyboard) {
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        m_role.get(), takesKeyboard ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                                    : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
}

bool LayerSurface::awaitConfigure(wl_display& display, std::chrono::milliseconds timeout) {
    WaylandQueue queue(display, *reinterpret_cast<wl_proxy*>(m_role.get()));
    wl_surface_commit(&m_surface);
    return queue.dispatchUntil([this] { return m_isConfigured || m_isClosed; }, timeout) &&
           m_isConfigured;
}

void LayerSurface::configure(std::uint32_t serial) {
    m_isConfigured = true;
    zwlr_layer_surface_v1_ack_configure(m_role.get(), serial);
    Q_EMIT configured();
}

void LayerSurface::close() {
    m_isClosed = true;
    if (m_isConfigured) {
        Q_EMIT closed();
    }
}

} // namespace quorvantel::platform
