#include "platform/linux/x11/X11UserTime.h"

namespace quorvantel::platform {

X11UserTime::X11UserTime(X11EventDispatcher& events)
    : X11EventHandler(events, X11EventRank::Observer) {}

bool X11UserTime::handleEvent(const xcb_generic_event_t& event) {
    if (typeOf(event) == XCB_KEY_PRESS) {
        m_last = eventAs<xcb_key_press_event_t>(event).time;
    } else if (typeOf(event) == XCB_BUTTON_PRESS) {
        m_last = eventAs<xcb_button_press_event_t>(event).time;
    }
    return false;
}

} // namespace quorvantel::platform
