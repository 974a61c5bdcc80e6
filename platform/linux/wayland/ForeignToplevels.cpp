#include "platform/linux/wayland/ForeignToplevels.h"

#include "platform/linux/wayland/WaylandGlobals.h"
#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

#include <wayland-client-protocol.h>

#include <algorithm>
#include <span>

namespace quorvantel::platform {

namespace {

using Manager = zwlr_foreign_toplevel_manager_v1;
using Toplevel = zwlr_foreign_toplevel_handle_v1;

bool isActivated(const wl_array& states) {
    const std::span values(static_cast<const std::uint32_t*>(states.data),
                           states.size / sizeof(std::uint32_t));
    return std::ranges::find(values, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) !=
           values.end();
}

} // namespace

ForeignToplevels::ForeignToplevels(const WaylandGlobals& globals)
    : m_manager(globals.bind<Manager>(zwlr_foreign_toplevel_manager_v1_interface, {1, 1})) {
    static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{
        .toplevel = [](void* self, Manager* /*manager*/,
                       Toplevel* toplevel) { static_cast<ForeignToplevels*>(self)->add(toplevel); },
        .finished =
            [](void* self, Manager* /*manager*/) {
                static_cast<ForeignToplevels*>(self)->m_manager.reset();
            },
    };
    if (m_manager) {
        zwlr_foreign_toplevel_manager_v1_add_listener(m_manager.get(), &listener, this);
    }
}

void ForeignToplevels::add(Toplevel* toplevel) {
    static constexpr auto ignore = [](void* /*self*/, Toplevel* /*toplevel*/, auto... /*rest*/) {};
    static constexpr zwlr_foreign_toplevel_handle_v1_listener listener{
        .title = ignore,
        .app_id = ignore,
        .output_enter = ignore,
        .output_leave = ignore,
        .state =
            [](void* self, Toplevel* /*toplevel*/, wl_array* states) {
                if (isActivated(*states)) {
                    Q_EMIT static_cast<ForeignToplevels*>(self)->activated();
                }
            },
        .done = ignore,
        .closed =
            [](void* self, Toplevel* closed) {
                std::erase_if(static_cast<ForeignToplevels*>(self)->m_toplevels,
                              [closed](const Handle& handle) { return handle.get() == closed; });
            },
    };
    m_toplevels.emplace_back(toplevel);
    zwlr_foreign_toplevel_handle_v1_add_listener(toplevel, &listener, this);
}

} // namespace quorvantel::platform
