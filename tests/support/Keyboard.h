#pragma once

#include "support/KeyboardMap.h"
#include "support/XConnection.h"

#include <vector>

namespace quorvantel::testing {

/// Presses real keys (XTEST extension), so that grabs, repeat and layouts play their parts.
///
/// Keys are named by key symbols as in <X11/keysymdef.h>; every call returns when the server has
/// the events. Whatever is still held is let go at the end.
class Keyboard {
public:
    /// Throws std::runtime_error when the server lacks XTEST.
    explicit Keyboard(const XConnection& connection);
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;
    ~Keyboard();

    void hold(xcb_keysym_t keysym);
    void release(xcb_keysym_t keysym);

    /// Presses the keys in this order and releases them in the opposite one, as with
    /// `{XK_Alt_L, XK_Super_L, XK_space}`.
    void press(const std::vector<xcb_keysym_t>& chord);

    /// Types Latin-1 text, with Shift where the layout wants it.
    void type(const QByteArray& text);

private:
    void send(std::uint8_t eventType, xcb_keycode_t keycode);

    const XConnection& m_connection;
    std::vector<xcb_keycode_t> m_held;
};

} // namespace quorvantel::testing
