#include "platform/linux/x11/X11PanelShowing.h"

#include "platform/linux/keyboard/KeySymbols.h"

namespace quorvantel::platform {

X11PanelShowing::X11PanelShowing(const X11Display& display, X11EventDispatcher& events,
                                 X11Keyboard& keyboard, X11VirtualKeyboard& virtualKeyboard,
                                 QWindow& window)
    : m_display(display),
      m_keyboard(keyboard),
      m_virtualKeyboard(virtualKeyboard),
      m_window(&window),
      m_windowId(static_cast<xcb_window_t>(window.winId())),
      m_grab(std::in_place, display, events, m_windowId) {
    m_retry.start();
}

X11PanelShowing::~X11PanelShowing() {
    if (m_heldKey) {
        m_virtualKeyboard.endRepeat(*m_heldKey);
    }
    m_grab.reset();
    if (m_previousFocus) {
        returnFocus();
    }
    xcb_flush(m_display.connection);
}

void X11PanelShowing::reclaim() {
    if (m_grab) {
        m_grab->request();
        m_retry.start();
    }
}

bool X11PanelShowing::checkGrab() {
    if (m_window.isNull() || !m_grab || m_grab->isHeld()) {
        return true;
    }
    m_grab->request();
    return false;
}

void X11PanelShowing::giveGrabUp() {
    m_grab.reset();
    m_desktopKeys.clear();
    takeFocus();
}

void X11PanelShowing::takeFocus() {
    const XcbPointer<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        m_display.connection, xcb_get_input_focus(m_display.connection), nullptr));
    if (focus && focus->focus != XCB_WINDOW_NONE) {
        m_previousFocus = focus->focus;
    }
    xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT, m_windowId, XCB_CURRENT_TIME);
    xcb_flush(m_display.connection);
}

void X11PanelShowing::returnFocus() {
    const XcbPointer<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        m_display.connection, xcb_get_input_focus(m_display.connection), nullptr));
    // The user may have gone to another window meanwhile, which is to keep the focus.
    if (focus && focus->focus == m_windowId) {
        xcb_set_input_focus(m_display.connection, XCB_INPUT_FOCUS_PARENT, *m_previousFocus,
                            XCB_CURRENT_TIME);
    }
}

X11PanelShowing::Verdict X11PanelShowing::judgePress(const xcb_key_press_event_t& event) {
    if (m_window.isNull()) {
        return event.event == m_windowId ? Verdict::Kept : Verdict::Typed;
    }
    m_modifiersFromBefore &= event.state;
    if (!m_grab || !m_grab->isHeld() || !m_virtualKeyboard.isAvailable()) {
        return Verdict::Typed;
    }
    const DesktopKey key = judge(event);
    if (key.fate == KeyFate::Kept) {
        m_desktopKeys.erase(event.detail);
        if (!isModifierSymbol(symbolOf(event))) {
            m_heldKey = event.detail;
        }
        return Verdict::Typed;
    }
    m_desktopKeys.insert_or_assign(event.detail, key);
    return Verdict::Kept;
}

X11PanelShowing::Verdict X11PanelShowing::judgeRelease(const xcb_key_release_event_t& event) {
    if (m_heldKey == event.detail) {
        m_heldKey.reset();
    }
    const auto found = m_desktopKeys.find(event.detail);
    if (found == m_desktopKeys.end()) {
        return Verdict::Typed;
    }
    // While a key is held, the server reports its repeats as releases, too.
    if (m_virtualKeyboard.isDown(event.detail)) {
        return Verdict::Kept;
    }
    const DesktopKey key = found->second;
    m_desktopKeys.erase(found);
    handOver(event.detail, key);
    return key.fate == KeyFate::HandedOver ? Verdict::Kept : Verdict::ClosingPanel;
}

void X11PanelShowing::noteFocusOut(const xcb_focus_out_event_t& event) {
    // The windows around the one that had the keyboard are told as well.
    const bool isOfEnclosingWindow = event.detail == XCB_NOTIFY_DETAIL_VIRTUAL ||
                                     event.detail == XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL;
    const bool endsGrabOfMenu =
        event.mode == XCB_NOTIFY_MODE_UNGRAB && event.event != m_windowId && !isOfEnclosingWindow;
    if (endsGrabOfMenu) {
        reclaim();
    }
}

X11PanelShowing::DesktopKey X11PanelShowing::judge(const xcb_key_press_event_t& event) const {
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

xkb_keysym_t X11PanelShowing::symbolOf(const xcb_key_press_event_t& event) const {
    const bool isShifted = (event.state & KeyModifiers::shiftMask) != 0;
    return m_keyboard.keymap().symbol(event.detail, layoutOf(event.state), isShifted);
}

void X11PanelShowing::handOver(xcb_keycode_t key, const DesktopKey& desktopKey) {
    if (desktopKey.fate != KeyFate::Dismissing) {
        m_grab->suspend();
        m_virtualKeyboard.press(key, desktopKey.modifiers);
    }
    if (desktopKey.fate == KeyFate::HandedOver) {
        reclaim();
    }
}

} // namespace quorvantel::platform
