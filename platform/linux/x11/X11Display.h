#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

namespace quorvantel::platform {

/// The X connection that the user interface already has, and its root window.
///
/// Hotkeys, raw input and the panel's keyboard grab share this one connection on purpose: the
/// server lets a client replace its own grab, and keeps the events of one connection in order. Not
/// owned.
struct X11Display {
    xcb_connection_t* connection;
    xcb_window_t root;

    /// Absent when the application runs on anything but X11.
    static std::optional<X11Display> current();

    /// Looks an atom up, creating it when the server does not know it yet.
    xcb_atom_t atom(const char* name) const;

    /// A property that holds 32-bit values; empty when it is absent or of another format.
    std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name) const;

    /// Whether this connection created the window.
    bool isOwn(xcb_window_t window) const;

    /// The major opcode of an extension; 0 when the server lacks it.
    std::uint8_t extensionOpcode(xcb_extension_t* extension) const;
};

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply or error of the X server, released with `free` as XCB asks for.
template <typename T>
using XcbPointer = std::unique_ptr<T, FreeDeleter>;

/// Whether a key is down according to the server's answer.
inline bool isDown(const xcb_query_keymap_reply_t& keymap, xcb_keycode_t key) {
    return (keymap.keys[key / 8] & (1U << (key % 8))) != 0;
}

} // namespace quorvantel::platform
