#include "platform/linux/x11/X11PanelHost.h"

#include "platform/linux/keyboard/KeySymbols.h"

#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace quorvantel::platform {

namespace {

/// The window that the user sees, of which the given one may be a part.
QWindow& panelOf(QWindow& window) {
    QWindow* const parent = window.parent();
    return parent == nullptr ? window : panelOf(*parent);
}

} // namespace

X11PanelHost::X11PanelHost(const X11Display& display, X11EventDispatcher& events,
                           X11Keyboard& keyboard)
    : X11EventHandler(events, X11EventRank::Panel),
      m_display(display),
      m_events(events),
      m_keyboard(keyboard),
      m_virtualKeyboard(display) {}

Qt::WindowFlags X11PanelHost::windowFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

void X11PanelHost::takeKeyboard(QWindow& window) {
    m_window = &window;
    m_windowId = static_cast<xcb_window_t>(window.winId());
    m_modifiersFromBefore = KeyModifiers::all;
    m_grab.emplace(m_display, m_events, m_windowId);
    m_retry.start();
}

void X11PanelHost::reclaimKeyboard() {
    if (m_grab) {
        m_grab->request();
        m_retry.start();
    }
}

bool X11PanelHost::checkGrab() {
    if (m_window.isNull() || !m_grab || m_grab->isHeld()) {
        return true;
    }
    m_grab->request();
    return false;
}

void X11PanelHost::giveGrabUp() {
    endGrab();
    takeFocus();
}

void X11PanelHost::endGrab() {
    m_grab.reset();
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
    const auto symbol =
        m_keyboard.keymap().baseSymbol(event.nativeScanCode(), layoutOf(event.nativeModifiers()));
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
        if (!isModifierSymbol(symbolOf(event))) {
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

X11PanelHost::DesktopKey X11PanelHost::judge(const xcb_key_press_event_t& event) const {
    const Keymap& keymap = m_keyboard.keymap();
    const std::uint32_t modifiers =
        keymap.modifiers().carbonModifiers(event.state & ~m_modifiersFromBefore);
    KeyFate fate = fateOfKey(symbolOf(event), modifiers);
    if (fate == KeyFate::HandedOverForGood) {
        const auto symbol = keymap.baseSymbol(event.detail, layoutOf(event.state));
        fate = symbol ? fateOfKey(*symbol, modifiers) : fate;
    }
    return {fate, keymap.modifiers().bitsOf(modifiers)};
}

xkb_keysym_t X11PanelHost::symbolOf(const xcb_key_press_event_t& event) const {
    const bool isShifted = (event.state & KeyModifiers::shiftMask) != 0;
    return m_keyboard.keymap().symbol(event.detail, layoutOf(event.state), isShifted);
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
