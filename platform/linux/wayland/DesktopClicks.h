#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quorvantel::platform {

class WaylandConnection;

/// Hears the clicks on the bare desktop, which activate no window and so are told of in no other
/// way: by transparent surfaces below all windows, one on each output.
class DesktopClicks : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the object. Hears nothing in Plasma, whose desktop is a window, and where
    /// the compositor cannot stretch a pixel over a surface (viewporter).
    DesktopClicks(const WaylandConnection& connection, zwlr_layer_shell_v1& shell);
    ~DesktopClicks() override;

    /// Listens on all outputs that there are now. Waits for nothing.
    void begin();
    void end();

Q_SIGNALS:
    void clicked();

private:
    class Area;

    const WaylandConnection& m_connection;
    zwlr_layer_shell_v1& m_shell;
    WaylandPointer<wp_viewporter> m_viewporter;
    WaylandPointer<wl_buffer> m_pixel;
    std::vector<std::unique_ptr<Area>> m_areas;
};

} // namespace quorvantel::platform
