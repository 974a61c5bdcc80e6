#include "platform/linux/wayland/WaylandPointer.h"

#include "blur-client-protocol.h"
#include "keyboard-shortcuts-inhibit-unstable-v1-client-protocol.h"
#include "viewporter-client-protocol.h"
#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"
#include "xdg-activation-v1-client-protocol.h"

#include <wayland-client-protocol.h>

namespace quorvantel::platform {

void WaylandDeleter::operator()(org_kde_kwin_blur* object) const {
    org_kde_kwin_blur_release(object);
}

void WaylandDeleter::operator()(org_kde_kwin_blur_manager* object) const {
    org_kde_kwin_blur_manager_destroy(object);
}

void WaylandDeleter::operator()(wl_buffer* object) const {
    wl_buffer_destroy(object);
}

void WaylandDeleter::operator()(wl_callback* object) const {
    wl_callback_destroy(object);
}

void WaylandDeleter::operator()(wl_compositor* object) const {
    wl_compositor_destroy(object);
}

void WaylandDeleter::operator()(wl_event_queue* object) const {
    wl_event_queue_destroy(object);
}

void WaylandDeleter::operator()(wl_keyboard* object) const {
    // The request for it came with the third version.
    if (wl_keyboard_get_version(object) >= WL_KEYBOARD_RELEASE_SINCE_VERSION) {
        wl_keyboard_release(object);
    } else {
        wl_keyboard_destroy(object);
    }
}

void WaylandDeleter::operator()(wl_output* object) const {
    // The request for it came with the third version.
    if (wl_output_get_version(object) >= WL_OUTPUT_RELEASE_SINCE_VERSION) {
        wl_output_release(object);
    } else {
        wl_output_destroy(object);
    }
}

void WaylandDeleter::operator()(wl_pointer* object) const {
    wl_pointer_destroy(object);
}

void WaylandDeleter::operator()(wl_region* object) const {
    wl_region_destroy(object);
}

void WaylandDeleter::operator()(wl_registry* object) const {
    wl_registry_destroy(object);
}

void WaylandDeleter::operator()(wl_seat* object) const {
    // The request for it came with the fifth version.
    if (wl_seat_get_version(object) >= WL_SEAT_RELEASE_SINCE_VERSION) {
        wl_seat_release(object);
    } else {
        wl_seat_destroy(object);
    }
}

void WaylandDeleter::operator()(wl_shm* object) const {
    wl_shm_destroy(object);
}

void WaylandDeleter::operator()(wl_shm_pool* object) const {
    wl_shm_pool_destroy(object);
}

void WaylandDeleter::operator()(wp_viewport* object) const {
    wp_viewport_destroy(object);
}

void WaylandDeleter::operator()(wp_viewporter* object) const {
    wp_viewporter_destroy(object);
}

void WaylandDeleter::operator()(xdg_activation_token_v1* object) const {
    xdg_activation_token_v1_destroy(object);
}

void WaylandDeleter::operator()(xdg_activation_v1* object) const {
    xdg_activation_v1_destroy(object);
}

void WaylandDeleter::operator()(zwlr_foreign_toplevel_handle_v1* object) const {
    zwlr_foreign_toplevel_handle_v1_destroy(object);
}

void WaylandDeleter::operator()(zwlr_foreign_toplevel_manager_v1* object) const {
    // It lives on as long as the connection; asking it to stop only ends its events.
    zwlr_foreign_toplevel_manager_v1_destroy(object);
}

void WaylandDeleter::operator()(zwlr_layer_shell_v1* object) const {
    // The request for it came with the third version.
    if (zwlr_layer_shell_v1_get_version(object) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION) {
        zwlr_layer_shell_v1_destroy(object);
    } else {
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(object));
    }
}

void WaylandDeleter::operator()(zwlr_layer_surface_v1* object) const {
    zwlr_layer_surface_v1_destroy(object);
}

void WaylandDeleter::operator()(zwp_keyboard_shortcuts_inhibit_manager_v1* object) const {
    zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(object);
}

void WaylandDeleter::operator()(zwp_keyboard_shortcuts_inhibitor_v1* object) const {
    zwp_keyboard_shortcuts_inhibitor_v1_destroy(object);
}

} // namespace quorvantel::platform
