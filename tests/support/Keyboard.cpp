#include "support/Keyboard.h"

#include <X11/keysym.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <stdexcept>

namespace quorvantel::testing {

Keyboard::Keyboard(const XConnection& connection) : m_connection(connection) {
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection.get(), &xcb_test_id);
    if (extension == nullptr || extension->present == 0) {
        throw std::runtime_error("the X server lacks the XTEST extension");
    }
}

Keyboard::~Keyboard() {
    while (!m_held.empty()) {
        send(XCB_KEY_RELEASE, m_held.back());
    }
}

void Keyboard::hold(xcb_keysym_t keysym) {
    send(XCB_KEY_PRESS, KeyboardMap(m_connection).find(keysym).keycode);
}

void Keyboard::release(xcb_keysym_t keysym) {
    send(XCB_KEY_RELEASE, KeyboardMap(m_connection).find(keysym).keycode);
}

void Keyboard::press(const std::vector<xcb_keysym_t>& chord) {
    for (const xcb_keysym_t keysym : chord) {
        hold(keysym);
    }
    for (auto keysym = chord.rbegin(); keysym != chord.rend(); ++keysym) {
        release(*keysym);
    }
}

void Keyboard::type(const QByteArray& text) {
    const KeyboardMap map(m_connection);
    for (const char character : text) {
        // The key symbols of Latin-1 are its code points.
        const xcb_keysym_t keysym = static_cast<unsigned char>(character);
        if (map.find(keysym).shifted) {
            press({XK_Shift_L, keysym});
        } else {
            press({keysym});
        }
    }
}

void Keyboard::send(std::uint8_t eventType, xcb_keycode_t keycode) {
    xcb_test_fake_input(m_connection.get(), eventType, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                        0);
    m_connection.synchronize();
    if (eventType == XCB_KEY_PRESS) {
        m_held.push_back(keycode);
    } else {
        std::erase(m_held, keycode);
    }
}

} // namespace quorvantel::testing
