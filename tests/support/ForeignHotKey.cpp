#include "support/ForeignHotKey.h"

#include "support/KeyboardMap.h"

namespace quorvantel::testing {

ForeignHotKey::ForeignHotKey(const QByteArray& display, xcb_keysym_t keysym,
                             std::uint16_t modifiers)
    : m_connection(display) {
    const xcb_keycode_t keycode = KeyboardMap(m_connection).find(keysym).keycode;
    const xcb_void_cookie_t cookie =
        xcb_grab_key_checked(m_connection.get(), 1, m_connection.root(), modifiers, keycode,
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XReply<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
    m_held = error == nullptr;
}

int ForeignHotKey::presses() {
    m_connection.synchronize();
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        if (event->response_type == XCB_KEY_PRESS) {
            ++m_presses;
        }
    }
    return m_presses;
}

} // namespace quorvantel::testing
