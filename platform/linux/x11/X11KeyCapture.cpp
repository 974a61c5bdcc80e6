#include "platform/linux/x11/X11KeyCapture.h"

#include "platform/linux/x11/GrabRetry.h"
#include "platform/linux/x11/HeldKey.h"

#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace quorvantel::platform {

namespace {

std::vector<HeldKey> keysDown(xcb_connection_t* connection) {
    std::vector<HeldKey> keys;
    const XcbPointer<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    if (!reply) {
        return keys;
    }
    for (unsigned int code = 0; code <= std::numeric_limits<xcb_keycode_t>::max(); ++code) {
        const auto key = static_cast<xcb_keycode_t>(code);
        if (isDown(*reply, key)) {
            keys.emplace_back(key);
        }
    }
    return keys;
}

} // namespace

class X11KeyCapture::Grab : public Token {
public:
    Grab(X11KeyCapture& owner, QWindow& window, Handler handler)
        : m_owner(owner),
          m_window(&window),
          m_handler(std::move(handler)),
          m_heldFromBefore(keysDown(owner.m_display.connection)) {
        if (!tryGrab()) {
            m_retry.start();
        }
    }

    ~Grab() override {
        if (m_isHeld) {
            xcb_ungrab_keyboard(m_owner.m_display.connection, XCB_CURRENT_TIME);
            xcb_flush(m_owner.m_display.connection);
        }
        if (m_owner.m_grab == this) {
            m_owner.m_grab = nullptr;
        }
    }

    /// Returns whether the press is nobody else's.
    bool handlePress(const xcb_key_press_event_t& event) {
        if (isHeldFromBefore(event)) {
            return true;
        }
        const auto press = m_owner.m_keyboard.keymap().press(event.detail, event.state);
        if (!press) {
            return true;
        }
        // The handler may end the capture and with it this object.
        const Handler handler = m_handler;
        return handler(*press) == Fate::Swallowed;
    }

    void handleRelease(const xcb_key_release_event_t& event) {
        for (HeldKey& held : m_heldFromBefore) {
            held.noteRelease(event);
        }
    }

private:
    bool isHeldFromBefore(const xcb_key_press_event_t& event) {
        const auto isRepeated = [&](const HeldKey& held) { return held.isRepeat(event); };
        if (std::ranges::any_of(m_heldFromBefore, isRepeated)) {
            return true;
        }
        std::erase_if(m_heldFromBefore,
                      [&](const HeldKey& held) { return held.key() == event.detail; });
        return false;
    }

    /// Returns whether there is nothing left to try.
    bool tryGrab() {
        if (m_window.isNull()) {
            return true;
        }
        xcb_connection_t* const connection = m_owner.m_display.connection;
        const XcbPointer<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            connection,
            xcb_grab_keyboard(connection, 0, static_cast<xcb_window_t>(m_window->winId()),
                              XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        m_isHeld = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
        return m_isHeld;
    }

    X11KeyCapture& m_owner;
    QPointer<QWindow> m_window;
    Handler m_handler;
    /// The keys that were down from the beginning.
    std::vector<HeldKey> m_heldFromBefore;
    GrabRetry m_retry{[this] { return tryGrab(); }};
    bool m_isHeld = false;
};

X11KeyCapture::X11KeyCapture(const X11Display& display, X11EventDispatcher& events,
                             X11Keyboard& keyboard, X11HotKeys& hotKeys)
    : X11EventHandler(events, X11EventRank::KeyCapture),
      m_display(display),
      m_keyboard(keyboard),
      m_hotKeys(hotKeys) {}

std::unique_ptr<KeyCapture::Token> X11KeyCapture::capture(QWindow& window, Handler handler) {
    auto grab = std::make_unique<Grab>(*this, window, std::move(handler));
    m_grab = grab.get();
    return grab;
}

bool X11KeyCapture::handleEvent(const xcb_generic_event_t& event) {
    if (m_grab == nullptr) {
        return false;
    }
    switch (typeOf(event)) {
    case XCB_KEY_PRESS: {
        const bool isKept = m_grab->handlePress(eventAs<xcb_key_press_event_t>(event));
        if (isKept) {
            m_hotKeys.releaseTyping();
        }
        return isKept;
    }
    case XCB_KEY_RELEASE:
        m_grab->handleRelease(eventAs<xcb_key_release_event_t>(event));
        return false;
    default:
        return false;
    }
}

} // namespace quorvantel::platform
