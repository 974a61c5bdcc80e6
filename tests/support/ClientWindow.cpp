#include "support/ClientWindow.h"

#include "support/WaitUntil.h"
#include "support/XDesktop.h"

#include <array>
#include <stdexcept>

namespace quorvantel::testing {
namespace {

/// The time of the server's last change to the window, which is that of a change of nothing.
xcb_timestamp_t serverTime(const XConnection& connection, xcb_window_t window) {
    xcb_change_property(connection.get(), XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    connection.synchronize();
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection.get())}) {
        if (event->response_type == XCB_PROPERTY_NOTIFY) {
            time = reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
        }
    }
    return time;
}

} // namespace

ClientWindow::ClientWindow(const QByteArray& display, const QRect& geometry)
    : m_connection(display), m_map(m_connection), m_window(xcb_generate_id(m_connection.get())) {
    const std::array<std::uint32_t, 2> values{
        m_connection.screen().white_pixel,
        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_PROPERTY_CHANGE,
    };
    xcb_create_window(
        m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_connection.root(),
        static_cast<std::int16_t>(geometry.x()), static_cast<std::int16_t>(geometry.y()),
        static_cast<std::uint16_t>(geometry.width()), static_cast<std::uint16_t>(geometry.height()),
        0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    // Without hints of size and position, a window manager places the window where it likes.
    constexpr std::uint32_t userPosition = 1U << 0U;
    std::array<std::uint32_t, 18> normalHints{userPosition};
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window,
                        XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, normalHints.size(),
                        normalHints.data());
    xcb_map_window(m_connection.get(), m_window);

    // A window manager that is just starting neither activates the windows that it finds nor
    // listens to the first request. One that it still has to read when the window is active must
    // not count as later than what the user does next.
    const XDesktop desktop(m_connection);
    if (!waitUntil([&] {
            constexpr std::uint32_t fromPager = 2;
            m_connection.request(m_window, "_NET_ACTIVE_WINDOW",
                                 {fromPager, serverTime(m_connection, m_window)});
            return desktop.activeWindow() == m_window && desktop.inputFocus() == m_window;
        })) {
        throw std::runtime_error("the window manager does not activate the client's window");
    }
}

QByteArray ClientWindow::typed() {
    readEvents();
    return m_typed;
}

int ClientWindow::clicks() {
    readEvents();
    return m_clicks;
}

void ClientWindow::readEvents() {
    m_connection.synchronize();
    constexpr std::uint8_t sentByClient = 0x80;
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        if (event->response_type == XCB_BUTTON_PRESS) {
            ++m_clicks;
        }
        if ((event->response_type & ~sentByClient) != XCB_KEY_PRESS) {
            continue;
        }
        const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event.get());
        const bool shifted = (press->state & XCB_MOD_MASK_SHIFT) != 0;
        const xcb_keysym_t keysym = m_map.symbol({press->detail, shifted});
        if (keysym >= 0x20 && keysym <= 0xff) {
            m_typed.append(static_cast<char>(keysym));
        }
    }
}

} // namespace quorvantel::testing
