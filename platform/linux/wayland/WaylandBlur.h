#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

class QRegion;
struct wl_surface;

namespace quorvantel::platform {

class WaylandConnection;

/// The blur that KWin puts behind translucent surfaces.
class WaylandBlur {
public:
    /// `connection` must outlive the object.
    explicit WaylandBlur(const WaylandConnection& connection);

    bool isAvailable() const { return m_manager != nullptr; }

    /// Blurs what is behind a part of the surface, in points from its top-left corner; nothing for
    /// an empty region. Takes effect with the surface's next commit.
    void setRegion(wl_surface& surface, const QRegion& region) const;

private:
    const WaylandConnection& m_connection;
    WaylandPointer<org_kde_kwin_blur_manager> m_manager;
};

} // namespace quorvantel::platform
