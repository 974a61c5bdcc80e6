#include "platform/linux/wayland/WaylandGlobals.h"

#include <wayland-client-protocol.h>

#include <algorithm>

namespace quorvantel::platform {

WaylandGlobals::WaylandGlobals(wl_display& display) {
    // A queue of its own, so that waiting for the answer handles nobody else's events.
    const WaylandPointer<wl_event_queue> queue(wl_display_create_queue(&display));
    void* const wrapper = wl_proxy_create_wrapper(&display);
    wl_proxy_set_queue(static_cast<wl_proxy*>(wrapper), queue.get());
    m_registry.reset(wl_display_get_registry(static_cast<wl_display*>(wrapper)));
    wl_proxy_wrapper_destroy(wrapper);

    static constexpr wl_registry_listener listener{
        .global =
            [](void* self, wl_registry* /*registry*/, std::uint32_t name, const char* interface,
               std::uint32_t version) {
                static_cast<WaylandGlobals*>(self)->m_globals[interface].append({name, version});
            },
        .global_remove =
            [](void* self, wl_registry* /*registry*/, std::uint32_t name) {
                for (QList<Global>& globals : static_cast<WaylandGlobals*>(self)->m_globals) {
                    globals.removeIf([name](const Global& global) { return global.name == name; });
                }
            },
    };
    wl_registry_add_listener(m_registry.get(), &listener, this);
    wl_display_roundtrip_queue(&display, queue.get());
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(m_registry.get()), nullptr);
}

bool WaylandGlobals::offers(const wl_interface& interface, std::uint32_t version) const {
    const QList<Global> globals = m_globals.value(interface.name);
    return !globals.isEmpty() && globals.first().version >= version;
}

void* WaylandGlobals::bindAny(const wl_interface& interface, Versions versions) const {
    if (!offers(interface, versions.oldest)) {
        return nullptr;
    }
    const Global global = m_globals.value(interface.name).first();
    return wl_registry_bind(m_registry.get(), global.name, &interface,
                            std::min(global.version, versions.newest));
}

std::vector<void*> WaylandGlobals::bindEach(const wl_interface& interface,
                                            Versions versions) const {
    std::vector<void*> objects;
    for (const Global& global : m_globals.value(interface.name)) {
        if (global.version >= versions.oldest) {
            objects.push_back(wl_registry_bind(m_registry.get(), global.name, &interface,
                                               std::min(global.version, versions.newest)));
        }
    }
    return objects;
}

} // namespace quorvantel::platform
