#pragma once

#include <memory>

struct org_kde_kwin_blur;
struct org_kde_kwin_blur_manager;
struct wl_buffer;
struct wl_callback;
struct wl_compositor;
struct wl_display;
struct wl_event_queue;
struct wl_keyboard;
struct wl_output;
struct wl_pointer;
struct wl_region;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_shm_pool;
struct wp_viewport;
struct wp_viewporter;
struct xdg_activation_token_v1;
struct xdg_activation_v1;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;
struct zwp_keyboard_shortcuts_inhibit_manager_v1;
struct zwp_keyboard_shortcuts_inhibitor_v1;

namespace quorvantel::platform {

/// Ends what a client made of the Wayland library, each by the request or function meant for it.
struct WaylandDeleter {
    void operator()(org_kde_kwin_blur* object) const;
    void operator()(org_kde_kwin_blur_manager* object) const;
    void operator()(wl_buffer* object) const;
    void operator()(wl_callback* object) const;
    void operator()(wl_compositor* object) const;
    void operator()(wl_event_queue* object) const;
    void operator()(wl_keyboard* object) const;
    void operator()(wl_output* object) const;
    void operator()(wl_pointer* object) const;
    void operator()(wl_region* object) const;
    void operator()(wl_registry* object) const;
    void operator()(wl_seat* object) const;
    void operator()(wl_shm* object) const;
    void operator()(wl_shm_pool* object) const;
    void operator()(wp_viewport* object) const;
    void operator()(wp_viewporter* object) const;
    void operator()(xdg_activation_token_v1* object) const;
    void operator()(xdg_activation_v1* object) const;
    void operator()(zwlr_foreign_toplevel_handle_v1* object) const;
    void operator()(zwlr_foreign_toplevel_manager_v1* object) const;
    void operator()(zwlr_layer_shell_v1* object) const;
    void operator()(zwlr_layer_surface_v1* object) const;
    void operator()(zwp_keyboard_shortcuts_inhibit_manager_v1* object) const;
    void operator()(zwp_keyboard_shortcuts_inhibitor_v1* object) const;
};

/// Owns a Wayland object of the client's.
template <typename Object>
using WaylandPointer = std::unique_ptr<Object, WaylandDeleter>;

} // namespace quorvantel::platform
