#pragma once

#include "platform/linux/x11/X11Display.h"

#include <QTimer>

#include <cstdint>
#include <vector>

namespace quorvantel::platform {

/// Presses keys in the user's place (XTEST extension), as if on a keyboard beside the user's.
///
/// The server ignores the press of a key that is down already, on whichever keyboard; so only keys
/// that are up can be pressed.
class X11VirtualKeyboard {
public:
    explicit X11VirtualKeyboard(const X11Display& display);
    X11VirtualKeyboard(const X11VirtualKeyboard&) = delete;
    X11VirtualKeyboard& operator=(const X11VirtualKeyboard&) = delete;
    ~X11VirtualKeyboard();

    /// Whether the server has the extension.
    bool isAvailable() const { return m_isAvailable; }

    /// Whether any keyboard has the key down, as far as the server has got with its keys.
    bool isDown(xcb_keycode_t key) const;

    /// Presses and releases a key with some modifiers, a mask of the core protocol. Those that the
    /// user holds no longer are pressed along with it, and released a moment later: a window
    /// manager that goes through the windows while Alt is held has to find it held.
    void press(xcb_keycode_t key, std::uint16_t modifiers);

    /// Has the server stop repeating a key that the user holds down, until it is pressed anew. Asks
    /// without waiting. Not for modifiers, which would lose their effect.
    void endRepeat(xcb_keycode_t key) const;

private:
    void releaseModifiers();
    void send(std::uint8_t eventType, xcb_keycode_t key) const;

    X11Display m_display;
    bool m_isAvailable;
    std::vector<xcb_keycode_t> m_heldModifiers;
    QTimer m_modifierRelease;
};

} // namespace quorvantel::platform
