#include "platform/linux/x11/X11PanelHost.h"

#include "platform/linux/x11/BaseSymbol.h"
#include "platform/linux/x11/X11KeyTranslation.h"

#include <QKeyEvent>
#include <QWindow>

#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

constexpr auto retryInterval = 20ms;
constexpr int retryAttempts = 15;

/// Where the state in an event holds the keyboard's group.
constexpr unsigned int groupShift = 13;
constexpr unsigned int groupMask = 0x3;

unsigned int groupOf(std::uint32_t state) {
    return state >> groupShift & groupMask;
}

/// The window that the user sees, of which the given one may be a part.
QWindow& panelOf(QWindow& window) {
    QWindow* const parent = window.parent();
    return parent == nullptr ? window : panelOf(*parent);
}

} // namespace

X11PanelHost::X11PanelHost(const X11Display& display, X11EventDispatcher& events)
    : X11EventHandler(events, X11EventRank::Panel),
      m_display(display),
      m_events(events),
      m_virtualKeyboard(display) {
    m_retry.setInterval(retryInterval);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { checkGrab(); });
}

Qt::WindowFlags X11PanelHost::windowFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

void X11PanelHost::takeKeyboard(QWindow& window) {
    m_window = &window;
    m_windowId = static_cast<xcb_window_t>(window.winId());
    m_modifiersFromBefore = X11Keyboard::modifierMask;
    m_grab.emplace(m_display, m_events, m_windowId);
    // Asks the server without waiting for the answer, which is there when the first key comes.
    m_symbols.reset(xcb_key_symbols_alloc(m_display.connection));
    awaitGrab();
}

void X11PanelHost::awaitGrab() {
    m_attemptsLeft = retryAttempts;
    m_retry.start();
}

void X11PanelHost::reclaimKeyboard() {
    if (m_grab) {
        m_grab->request();
        awaitGrab();
    }
}

void X11PanelHost::checkGrab() {
    if (m_window.isNull() || !m_grab || m_grab->isHeld()) {
        m_retry.stop();
    } else if (--m_attemptsLeft > 0) {
        m_grab->request();
    } else {
        m_retry.stop();
        endGrab();
        takeFocus();
    }
}

void X11PanelHost::endGrab() {
    m_grab.reset();
    m_symbols.reset();
    m_keyboard.reset();
    m_desktopKeys.clear();
}

void X11PanelHost::takeFocus() {
    const XcbPointer<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        m_display.connection, xcb_get_input_focus(m_display.connection), nullptr));
    if (focus) {
        m_previousFocus = focus->focus;
    }
    xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT, m_windowId, XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

void X11PanelHost::releaseKeyboard(QWindow& /*window*/) {
    m_retry.stop();
    if (const auto heldKey = std::exchange(m_heldKey, std::nullopt)) {
        m_virtualKeyboard.endRepeat(*heldKey);
    }
    endGrab();
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
    if (focus && focus->focus == m_windowId) {
        xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT, m_previousFocus,
                            XCB_CURRENT_TIME);
    }
    m_previousFocus = XCB_WINDOW_NONE;
}

QChar X11PanelHost::baseCharacter(const QKeyEvent& event) const {
    const auto key = static_cast<xcb_keycode_t>(event.nativeScanCode());
    const auto symbol = baseSymbol(m_display, key, groupOf(event.nativeModifiers()));
    return symbol && isLatin1(*symbol) ? QChar(static_cast<char16_t>(*symbol)) : QChar();
}

bool X11PanelHost::handleEvent(const xcb_generic_event_t& event) {
    switch (typeOf(event)) {
    case XCB_KEY_PRESS:
        return handlePress(eventAs<xcb_key_press_event_t>(event));
    case XCB_KEY_RELEASE:
        return handleRelease(eventAs<xcb_key_release_event_t>(event));
    case XCB_FOCUS_OUT:
        handleFocusOut(eventAs<xcb_focus_out_event_t>(event));
        return false;
    default:
        return false;
    }
}

bool X11PanelHost::handlePress(const xcb_key_press_event_t& event) {
    if (m_window.isNull()) {
        // It was typed before the panel went, but not for what is searched next time.
        return event.event == m_windowId;
    }
    m_modifiersFromBefore &= event.state;
    if (!m_grab || !m_grab->isHeld() || !m_virtualKeyboard.isAvailable()) {
        return false;
    }
    const DesktopKey key = judge(event);
    if (key.fate == KeyFate::Kept) {
        m_desktopKeys.erase(event.detail);
        if (xcb_is_modifier_key(symbolOf(event)) == 0) {
            m_heldKey = event.detail;
        }
        return false;
    }
    m_desktopKeys.insert_or_assign(event.detail, key);
    return true;
}

bool X11PanelHost::handleRelease(const xcb_key_release_event_t& event) {
    if (m_heldKey == event.detail) {
        m_heldKey.reset();
    }
    const auto found = m_desktopKeys.find(event.detail);
    if (found == m_desktopKeys.end()) {
        return false;
    }
    // While a key is held, the server reports its repeats as releases, too.
    if (!m_virtualKeyboard.isDown(event.detail)) {
        const DesktopKey key = found->second;
        m_desktopKeys.erase(found);
        handOver(event.detail, key);
    }
    return true;
}

void X11PanelHost::handleFocusOut(const xcb_focus_out_event_t& event) {
    // The windows around the one that had the keyboard are told as well.
    const bool isOfEnclosingWindow = event.detail == XCB_NOTIFY_DETAIL_VIRTUAL ||
                                     event.detail == XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL;
    const bool endsGrabOfMenu =
        event.mode == XCB_NOTIFY_MODE_UNGRAB && event.event != m_windowId && !isOfEnclosingWindow;
    if (endsGrabOfMenu) {
        reclaimKeyboard();
    }
}

X11PanelHost::DesktopKey X11PanelHost::judge(const xcb_key_press_event_t& event) {
    const unsigned int held = event.state & X11Keyboard::modifierMask & ~m_modifiersFromBefore;
    if (held == 0) {
        return {fateOfKey(symbolOf(event), 0), 0};
    }
    if (!m_keyboard) {
        m_keyboard = X11Keyboard::read(m_display);
    }
    const std::uint32_t modifiers = carbonModifiers(*m_keyboard, static_cast<std::uint16_t>(held));
    KeyFate fate = fateOfKey(symbolOf(event), modifiers);
    if (fate == KeyFate::HandedOverForGood) {
        // Asks the server, so not for every letter.
        const auto symbol = baseSymbol(m_display, event.detail, groupOf(event.state));
        fate = symbol ? fateOfKey(*symbol, modifiers) : fate;
    }
    return {fate, m_keyboard->modifierBits(modifiers)};
}

xcb_keysym_t X11PanelHost::symbolOf(const xcb_key_press_event_t& event) {
    const bool isSecondGroup = groupOf(event.state) == 1;
    const bool isShifted = (event.state & XCB_MOD_MASK_SHIFT) != 0;
    return xcb_key_symbols_get_keysym(m_symbols.get(), event.detail,
                                      (isSecondGroup ? 2 : 0) + (isShifted ? 1 : 0));
}

void X11PanelHost::handOver(xcb_keycode_t key, const DesktopKey& desktopKey) {
    if (desktopKey.fate != KeyFate::Dismissing) {
        m_grab->suspend();
        m_virtualKeyboard.press(key, desktopKey.modifiers);
    }
    if (desktopKey.fate == KeyFate::HandedOver) {
        reclaimKeyboard();
    } else {
        panelOf(*m_window).close();
    }
}

} // namespace quorvantel::platform
