#include "platform/linux/x11/X11DisplayServer.h"

#include "platform/linux/x11/SessionManagerLoss.h"

namespace quorvantel::platform {

std::shared_ptr<const void> X11DisplayServer::reach() {
    const std::shared_ptr<xcb_connection_t> connection(xcb_connect(nullptr, nullptr),
                                                       xcb_disconnect);
    return xcb_connection_has_error(connection.get()) == 0 ? connection : nullptr;
}

std::unique_ptr<DisplayServer> X11DisplayServer::connect() {
    return std::make_unique<X11DisplayServer>(X11Display::current().value());
}

X11DisplayServer::X11DisplayServer(const X11Display& display)
    : m_display(display),
      m_rawEvents(display, m_events),
      m_keyboard(display, m_events),
      m_panelKeyboard(display, m_events, m_keyboard),
      m_hotKeys(display, m_events, m_rawEvents, m_keyboard,
                [this] { return m_panelKeyboard.decidesAboutTyping(); }),
      m_keyboardGuard(display, [this] { m_panelKeyboard.reclaim(); }),
      m_keyCapture(display, m_events, m_keyboard, m_hotKeys),
      m_clickMonitor(display, m_events, m_rawEvents),
      m_windowBackdrop(display, m_events),
      m_windowFrame(display),
      m_userTime(m_events),
      m_windowActivator(display, m_userTime),
      m_startupNotifier(display, m_userTime),
      m_screens(display, m_events),
      m_settings(display, m_events),
      m_callerActivation(display, m_userTime) {
    surviveSessionManagerLoss();
}

bool X11DisplayServer::isGone() const {
    return xcb_connection_has_error(m_display.connection) != 0;
}

} // namespace quorvantel::platform
