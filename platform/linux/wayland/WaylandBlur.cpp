#include "platform/linux/wayland/WaylandBlur.h"

#include "blur-client-protocol.h"
#include "platform/linux/wayland/WaylandConnection.h"

#include <QRegion>

namespace quorvantel::platform {

WaylandBlur::WaylandBlur(const WaylandConnection& connection)
    : m_connection(connection),
      m_manager(connection.globals().bind<org_kde_kwin_blur_manager>(
          org_kde_kwin_blur_manager_interface, {1, 1})) {}

void WaylandBlur::setRegion(wl_surface& surface, const QRegion& region) const {
    if (!m_manager) {
        return;
    }
    if (region.isEmpty()) {
        org_kde_kwin_blur_manager_unset(m_manager.get(), &surface);
        return;
    }
    const WaylandPointer<org_kde_kwin_blur> blur(
        org_kde_kwin_blur_manager_create(m_manager.get(), &surface));
    org_kde_kwin_blur_set_region(blur.get(), m_connection.makeRegion(region).get());
    org_kde_kwin_blur_commit(blur.get());
}

} // namespace quorvantel::platform
