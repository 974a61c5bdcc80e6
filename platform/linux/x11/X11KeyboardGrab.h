#pragma once

#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"

#include <QObject>

#include <optional>

namespace quorvantel::platform {

/// An active grab of the keyboard that lets the keys through one at a time: the synchronous mode of
/// the X protocol, in which the server keeps every further key until the client asks for it.
///
/// So each key takes its full effect before the next one is read, however fast the user types and
/// however busy the application is. Text composed of several keys stays in its place, since Qt
/// queues the presses of ordinary keys, but not what input methods make of others. And whatever was
/// typed after the key that ended the grab goes to the application in front.
///
/// A client has one grab at a time: a menu of the application's own takes this one's place, and
/// leaves none when it goes.
///
/// While the application does not run on, neither does the keyboard, the keys that the server
/// itself acts upon included; `X11KeyboardGuard` sees to it that this does not last, and the end of
/// the application frees it in any case.
class X11KeyboardGrab : public X11EventHandler {
public:
    /// Asks for the grab; its keys are reported to `window`, which has to be mapped.
    X11KeyboardGrab(const X11Display& display, X11EventDispatcher& events, xcb_window_t window);
    X11KeyboardGrab(const X11KeyboardGrab&) = delete;
    X11KeyboardGrab& operator=(const X11KeyboardGrab&) = delete;
    /// Ends the grab.
    ~X11KeyboardGrab() override;

    /// Asks for the grab again, without waiting for the answer.
    void request();

    /// Whether the server granted the latest request. Another client that holds the keyboard, such
    /// as a menu, makes it refuse. Waits for the answer when it is not there yet.
    bool isHeld();

    /// Ends the grab until the next `request`. What was typed before still reaches the window.
    void suspend();

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    void forgetRequest();
    void allowNextKey();

    X11Display m_display;
    xcb_window_t m_window;
    bool m_isHeld = false;
    /// The request whose answer has not been read yet.
    std::optional<xcb_grab_keyboard_cookie_t> m_request;
    bool m_allowancePending = false;
    QObject m_context;
};

} // namespace quorvantel::platform
