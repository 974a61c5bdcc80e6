#include "platform/linux/x11/X11KeyboardGrab.h"

#include <utility>

namespace quorvantel::platform {

X11KeyboardGrab::X11KeyboardGrab(const X11Display& display, X11EventDispatcher& events,
                                 xcb_window_t window)
    : X11EventHandler(events, X11EventRank::Observer), m_display(display), m_window(window) {
    request();
}

X11KeyboardGrab::~X11KeyboardGrab() {
    forgetRequest();
    xcb_ungrab_keyboard(m_display.connection, XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

void X11KeyboardGrab::request() {
    forgetRequest();
    m_request = xcb_grab_keyboard(m_display.connection, 0, m_window, XCB_CURRENT_TIME,
                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
    allowNextKey();
}

bool X11KeyboardGrab::isHeld() {
    if (const auto request = std::exchange(m_request, std::nullopt)) {
        const XcbPointer<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(m_display.connection, *request, nullptr));
        m_isHeld = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }
    return m_isHeld;
}

void X11KeyboardGrab::suspend() {
    forgetRequest();
    xcb_allow_events(m_display.connection, XCB_ALLOW_ASYNC_KEYBOARD, XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(m_display.connection, XCB_CURRENT_TIME);
}

void X11KeyboardGrab::forgetRequest() {
    if (const auto request = std::exchange(m_request, std::nullopt)) {
        xcb_discard_reply(m_display.connection, request->sequence);
    }
    m_isHeld = false;
}

bool X11KeyboardGrab::handleEvent(const xcb_generic_event_t& event) {
    const bool isKey = typeOf(event) == XCB_KEY_PRESS || typeOf(event) == XCB_KEY_RELEASE;
    // The repeat of a held key comes as two events at once, which are one to the server.
    if (isKey && !std::exchange(m_allowancePending, true)) {
        // What Qt has queued for this key is delivered before it comes to this call.
        QMetaObject::invokeMethod(
            &m_context,
            [this] {
                m_allowancePending = false;
                allowNextKey();
            },
            Qt::QueuedConnection);
    }
    return false;
}

void X11KeyboardGrab::allowNextKey() {
    xcb_allow_events(m_display.connection, XCB_ALLOW_SYNC_KEYBOARD, XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

} // namespace quorvantel::platform
