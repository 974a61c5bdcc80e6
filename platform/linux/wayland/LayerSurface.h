#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QSize>

#include <chrono>
#include <cstdint>

struct wl_display;
struct wl_output;
struct wl_surface;

namespace quorvantel::platform {

/// Makes a surface one of the desktop's own for as long as this object lives:
/// the role of the layer shell (wlr-layer-shell-unstable-v1).
///
/// The surface is placed by its top-left corner, and bars and docks do not displace it. Changes
/// take effect with the next commit of the surface.
class LayerSurface : public QObject {
    Q_OBJECT

public:
    /// Below all windows, above them, or above full-screen ones, too, as at first.
    enum class Layer { Background, Top, Overlay };

    /// The shell is to have version 2 or a later one. The surface must have no buffer and no other
    /// role, and must outlive this object. Without an output, the compositor picks one.
    LayerSurface(zwlr_layer_shell_v1& shell, wl_surface& surface, wl_output* output);

    /// Where the top-left corner is on the output, in points.
    void setPosition(const QPoint& position);
    void setSize(const QSize& size);

    void setLayer(Layer layer);

    /// Whether typing goes to the surface and to nothing else.
    void setTakesKeyboard(bool takesKeyboard);

    /// Enough for a compositor that is busy, which takes some milliseconds.
    static constexpr std::chrono::milliseconds configureTimeout{500};

    /// Commits the surface and waits for the compositor to let it be drawn, which nothing may
    /// before. False when it does not within the time, or does not want the surface at all. Events
    /// of other objects stay queued.
    bool awaitConfigure(wl_display& display, std::chrono::milliseconds timeout = configureTimeout);

Q_SIGNALS:
    /// The compositor lets the surface be drawn, for the first time or with another size.
    void configured();

    /// The compositor shows the surface no longer, because its output is gone for instance.
    void closed();

private:
    void configure(std::uint32_t serial);
    void close();

    WaylandPointer<zwlr_layer_surface_v1> m_role;
    wl_surface& m_surface;
    bool m_isConfigured = false;
    bool m_isClosed = false;
};

} // namespace quorvantel::platform
