#pragma once

#include "platform/linux/x11/X11Display.h"

#include <optional>

namespace quorvantel::platform {

/// Whether a key symbol is a printable character of Latin-1; its value is then that of the
/// character.
constexpr bool isLatin1(xcb_keysym_t symbol) {
    return (symbol >= 0x20 && symbol <= 0x7E) || (symbol >= 0xA0 && symbol <= 0xFF);
}

/// What a key types while no modifier is held, as in <X11/keysymdef.h>, by the keyboard's layout
/// number `group` (X Keyboard Extension). When that is not Latin-1, as with a Greek layout, the
/// first of the other layouts that have Latin-1 there counts instead. Absent when the server cannot
/// say. Waits for the server's answer.
std::optional<xcb_keysym_t> baseSymbol(const X11Display& display, xcb_keycode_t key,
                                       unsigned int group);

} // namespace quorvantel::platform
