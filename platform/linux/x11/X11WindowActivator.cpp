#include "platform/linux/x11/X11WindowActivator.h"

#include <QWindow>

namespace quorvantel::platform {

X11WindowActivator::X11WindowActivator(const X11Display& display, const X11UserTime& userTime)
    : m_display(display),
      m_userTime(userTime),
      m_activeWindow(display.atom("_NET_ACTIVE_WINDOW")),
      m_userTimeProperty(display.atom("_NET_WM_USER_TIME")) {}

void X11WindowActivator::activate(QWindow& window) {
    constexpr std::uint32_t fromApplication = 1;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_timestamp_t time = m_userTime.last();
    if (time != XCB_CURRENT_TIME) {
        xcb_change_property(m_display.connection, XCB_PROP_MODE_REPLACE, id, m_userTimeProperty,
                            XCB_ATOM_CARDINAL, 32, 1, &time);
    }
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = id;
    event.type = m_activeWindow;
    event.data.data32[0] = fromApplication;
    event.data.data32[1] = time;
    xcb_send_event(m_display.connection, 0, m_display.root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(m_display.connection);
}

} // namespace quorvantel::platform
