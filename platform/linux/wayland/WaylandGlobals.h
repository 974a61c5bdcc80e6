#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <cstdint>
#include <vector>

struct wl_interface;

namespace quorvantel::platform {

/// What a Wayland compositor offers: its globals.
class WaylandGlobals {
public:
    /// The versions of an interface that the caller can work with.
    struct Versions {
        std::uint32_t oldest;
        std::uint32_t newest;
    };

    /// Asks the compositor and waits for the answer. The connection must outlive the object; its
    /// other events stay queued. Nothing is offered by a compositor that is gone.
    explicit WaylandGlobals(wl_display& display);

    /// Binds the global with an interface, at the newest version that both sides know. Null when
    /// the compositor has none or only an older one. The object belongs to the caller, and its
    /// events to the connection's default queue.
    template <typename Object>
    Object* bind(const wl_interface& interface, Versions versions) const {
        return static_cast<Object*>(bindAny(interface, versions));
    }

    /// The same with all globals that have the interface, in the order in which they came.
    template <typename Object>
    std::vector<WaylandPointer<Object>> bindAll(const wl_interface& interface,
                                                Versions versions) const {
        std::vector<WaylandPointer<Object>> objects;
        for (void* const object : bindEach(interface, versions)) {
            objects.emplace_back(static_cast<Object*>(object));
        }
        return objects;
    }

    /// Whether the compositor has a global with the interface, at that version at least.
    bool offers(const wl_interface& interface, std::uint32_t version = 1) const;

private:
    struct Global {
        std::uint32_t name;
        std::uint32_t version;
    };

    void* bindAny(const wl_interface& interface, Versions versions) const;
    std::vector<void*> bindEach(const wl_interface& interface, Versions versions) const;

    WaylandPointer<wl_registry> m_registry;
    /// Those of each interface, the first at first.
    QHash<QByteArray, QList<Global>> m_globals;
};

} // namespace quorvantel::platform
