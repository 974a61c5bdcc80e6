#pragma once

#include "platform/linux/x11/X11EventHandler.h"

#include <xcb/xcb.h>

namespace quorvantel::platform {

/// Remembers the server's time of the user's last key or button press in the launcher. A program
/// that is started with it may come to the front, which focus-stealing prevention otherwise keeps
/// it from.
class X11UserTime : public X11EventHandler {
public:
    explicit X11UserTime(X11EventDispatcher& events);

    /// Server time in milliseconds; `XCB_CURRENT_TIME` before the first press.
    xcb_timestamp_t last() const { return m_last; }

    /// Counts a deed of the user's in another program that was meant for the launcher.
    void note(xcb_timestamp_t time) { m_last = time; }

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    xcb_timestamp_t m_last = XCB_CURRENT_TIME;
};

} // namespace quorvantel::platform
