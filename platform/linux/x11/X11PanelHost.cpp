#include "platform/linux/x11/X11PanelHost.h"

#include <QCoreApplication>
#include <QWindow>

#include <X11/XF86keysym.h>
#include <X11/keysym.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <chrono>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto retryInterval = 20ms;
constexpr int retryAttempts = 15;

/// The range of the keys that are not of the typewriter, by vendor number.
constexpr xcb_keysym_t firstSpecialKey = 0x10080000;
constexpr xcb_keysym_t lastSpecialKey = 0x1008FFFF;

/// Special keys that edit text, which is the panel's own business.
constexpr std::array<xcb_keysym_t, 3> editingKeys{XF86XK_Copy, XF86XK_Cut, XF86XK_Paste};

/// Keys that adjust or capture something while the user goes on with what is on the screen.
constexpr std::array<xcb_keysym_t, 22> adjustingKeys{
    XK_Print,
    XF86XK_MonBrightnessUp,
    XF86XK_MonBrightnessDown,
    XF86XK_KbdLightOnOff,
    XF86XK_KbdBrightnessUp,
    XF86XK_KbdBrightnessDown,
    XF86XK_AudioLowerVolume,
    XF86XK_AudioMute,
    XF86XK_AudioRaiseVolume,
    XF86XK_AudioMicMute,
    XF86XK_AudioPlay,
    XF86XK_AudioStop,
    XF86XK_AudioPrev,
    XF86XK_AudioNext,
    XF86XK_AudioRecord,
    XF86XK_AudioPause,
    XF86XK_AudioRewind,
    XF86XK_AudioForward,
    XF86XK_AudioRepeat,
    XF86XK_AudioRandomPlay,
    XF86XK_AudioCycleTrack,
    XF86XK_TouchpadToggle,
};

bool contains(const auto& symbols, xcb_keysym_t symbol) {
    return std::ranges::find(symbols, symbol) != symbols.end();
}

bool isForOthers(xcb_keysym_t symbol) {
    const bool isSpecial = symbol >= firstSpecialKey && symbol <= lastSpecialKey;
    return symbol == XK_Print || (isSpecial && !contains(editingKeys, symbol));
}

/// The window that the user sees, of which the given one may be a part.
QWindow& panelOf(QWindow& window) {
    QWindow* const parent = window.parent();
    return parent == nullptr ? window : panelOf(*parent);
}

bool hasXTest(xcb_connection_t* connection) {
    const auto* const extension = xcb_get_extension_data(connection, &xcb_test_id);
    return extension != nullptr && extension->present != 0;
}

} // namespace

X11PanelHost::X11PanelHost(const X11Display& display)
    : m_display(display), m_canFakeInput(hasXTest(display.connection)) {
    qApp->installNativeEventFilter(this);
    m_retry.setInterval(retryInterval);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { checkGrab(); });
}

X11PanelHost::~X11PanelHost() {
    if (qApp != nullptr) {
        qApp->removeNativeEventFilter(this);
    }
}

Qt::WindowFlags X11PanelHost::windowFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

void X11PanelHost::takeKeyboard(QWindow& window) {
    m_window = &window;
    m_grab.emplace(m_display, static_cast<xcb_window_t>(window.winId()));
    // Asks the server without waiting for the answer, which is there when the first key comes.
    m_symbols.reset(xcb_key_symbols_alloc(m_display.connection));
    awaitGrab();
}

void X11PanelHost::awaitGrab() {
    m_attemptsLeft = retryAttempts;
    m_retry.start();
}

void X11PanelHost::checkGrab() {
    if (m_window.isNull() || !m_grab || m_grab->isHeld()) {
        m_retry.stop();
    } else if (--m_attemptsLeft > 0) {
        m_grab->request();
    } else {
        m_retry.stop();
        m_grab.reset();
        takeFocus();
    }
}

void X11PanelHost::takeFocus() {
    const XcbPointer<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        m_display.connection, xcb_get_input_focus(m_display.connection), nullptr));
    if (focus) {
        m_previousFocus = focus->focus;
    }
    xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT,
                        static_cast<xcb_window_t>(m_window->winId()), XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

void X11PanelHost::releaseKeyboard(QWindow& /*window*/) {
    m_retry.stop();
    m_grab.reset();
    m_symbols.reset();
    if (m_previousFocus != XCB_WINDOW_NONE) {
        returnFocus();
    }
    m_window = nullptr;
    xcb_flush(m_display.connection);
}

void X11PanelHost::returnFocus() {
    const XcbPointer<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        m_display.connection, xcb_get_input_focus(m_display.connection), nullptr));
    // The user may have gone to another window meanwhile, which is to keep the focus.
    if (focus && focus->focus == static_cast<xcb_window_t>(m_window->winId())) {
        xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT, m_previousFocus,
                            XCB_CURRENT_TIME);
    }
    m_previousFocus = XCB_WINDOW_NONE;
}

bool X11PanelHost::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                     qintptr* /*result*/) {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7FU) != XCB_KEY_RELEASE || !m_canFakeInput || !m_grab ||
        !m_grab->isHeld()) {
        return false;
    }
    const xcb_keycode_t key = static_cast<const xcb_key_release_event_t*>(message)->detail;
    const xcb_keysym_t symbol = symbolOf(key);
    // While a key is held, the server reports its repeats as releases, too.
    if (isForOthers(symbol) && !isDown(key)) {
        handOver(key, contains(adjustingKeys, symbol));
    }
    return false;
}

xcb_keysym_t X11PanelHost::symbolOf(xcb_keycode_t key) {
    return xcb_key_symbols_get_keysym(m_symbols.get(), key, 0);
}

bool X11PanelHost::isDown(xcb_keycode_t key) const {
    const XcbPointer<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(
        m_display.connection, xcb_query_keymap(m_display.connection), nullptr));
    return reply && (reply->keys[key / 8] & (1U << (key % 8))) != 0;
}

void X11PanelHost::handOver(xcb_keycode_t key, bool keepsPanel) {
    // In one go, so that no key of the user's falls between: the server carries out the requests of
    // a connection in order, and a faked event at once.
    m_grab->suspend();
    for (const std::uint8_t type : {std::uint8_t{XCB_KEY_PRESS}, std::uint8_t{XCB_KEY_RELEASE}}) {
        xcb_test_fake_input(m_display.connection, type, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0,
                            0, 0);
    }
    if (keepsPanel) {
        m_grab->request();
        awaitGrab();
    } else {
        panelOf(*m_window).close();
    }
    xcb_flush(m_display.connection);
}

} // namespace quorvantel::platform
