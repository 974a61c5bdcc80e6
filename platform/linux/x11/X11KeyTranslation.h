#pragma once

#include "platform/KeyCapture.h"
#include "platform/linux/x11/X11Keyboard.h"

#include <optional>

namespace quorvantel::platform {

/// The Carbon modifier mask for the state of the modifiers in an X event; everything but Command
/// (Super), Shift, Option (Alt) and Control is dropped.
std::uint32_t carbonModifiers(const X11Keyboard& keyboard, std::uint16_t state);

/// What a press of an X key code means on the given keyboard, whatever its layout; absent for the
/// modifier keys and Caps Lock.
std::optional<KeyPress> translateKeyPress(const X11Keyboard& keyboard, xcb_keycode_t key,
                                          std::uint16_t state);

} // namespace quorvantel::platform
