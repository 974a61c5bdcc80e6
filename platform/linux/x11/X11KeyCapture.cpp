#include "platform/linux/x11/X11KeyCapture.h"

#include "platform/linux/x11/X11KeyTranslation.h"
#include "platform/linux/x11/X11Keyboard.h"

#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto retryInterval = 20ms;
constexpr int retryAttempts = 15;

/// The keys that were down from the beginning, with the times of their latest releases. The server
/// writes the repeat of a held key as a release and a press of the same time.
using HeldKeys = std::unordered_map<xcb_keycode_t, std::optional<xcb_timestamp_t>>;

HeldKeys keysDown(xcb_connection_t* connection) {
    HeldKeys keys;
    const XcbPointer<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    if (!reply) {
        return keys;
    }
    for (unsigned int code = 0; code <= std::numeric_limits<xcb_keycode_t>::max(); ++code) {
        const auto key = static_cast<xcb_keycode_t>(code);
        if (isDown(*reply, key)) {
            keys.try_emplace(key);
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
          m_keyboard(X11Keyboard::read(owner.m_display)),
          m_heldFromBefore(keysDown(owner.m_display.connection)) {
        m_retry.setInterval(retryInterval);
        QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { tryGrab(); });
        m_retry.start();
        tryGrab();
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
        const auto press = translateKeyPress(m_keyboard, event.detail, event.state);
        if (!press) {
            return true;
        }
        // The handler may end the capture and with it this object.
        const Handler handler = m_handler;
        return handler(*press) == Fate::Swallowed;
    }

    void handleRelease(const xcb_key_release_event_t& event) {
        if (const auto held = m_heldFromBefore.find(event.detail); held != m_heldFromBefore.end()) {
            held->second = event.time;
        }
    }

private:
    bool isHeldFromBefore(const xcb_key_press_event_t& event) {
        const auto held = m_heldFromBefore.find(event.detail);
        if (held == m_heldFromBefore.end()) {
            return false;
        }
        if (held->second.value_or(event.time) == event.time) {
            return true;
        }
        m_heldFromBefore.erase(held);
        return false;
    }

    void tryGrab() {
        xcb_connection_t* const connection = m_owner.m_display.connection;
        if (m_window.isNull() || m_attemptsLeft-- == 0) {
            m_retry.stop();
            return;
        }
        const XcbPointer<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            connection,
            xcb_grab_keyboard(connection, 0, static_cast<xcb_window_t>(m_window->winId()),
                              XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        m_isHeld = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
        if (m_isHeld) {
            m_retry.stop();
        }
    }

    X11KeyCapture& m_owner;
    QPointer<QWindow> m_window;
    Handler m_handler;
    X11Keyboard m_keyboard;
    HeldKeys m_heldFromBefore;
    QTimer m_retry;
    int m_attemptsLeft = retryAttempts;
    bool m_isHeld = false;
};

X11KeyCapture::X11KeyCapture(const X11Display& display, X11EventDispatcher& events,
                             X11HotKeys& hotKeys)
    : X11EventHandler(events, X11EventRank::KeyCapture), m_display(display), m_hotKeys(hotKeys) {}

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
