#include "platform/linux/x11/X11PanelKeyboard.h"

#include <utility>

namespace quorvantel::platform {

using Verdict = X11PanelShowing::Verdict;

X11PanelKeyboard::X11PanelKeyboard(const X11Display& display, X11EventDispatcher& events,
                                   X11Keyboard& keyboard)
    : X11EventHandler(events, X11EventRank::Panel),
      m_display(display),
      m_events(events),
      m_keyboard(keyboard),
      m_virtualKeyboard(display) {}

void X11PanelKeyboard::take(QWindow& window, std::function<void()> onClose) {
    m_window = static_cast<xcb_window_t>(window.winId());
    m_onClose = std::move(onClose);
    m_showing.emplace(m_display, m_events, m_keyboard, m_virtualKeyboard, window);
}

void X11PanelKeyboard::reclaim() {
    if (m_showing) {
        m_showing->reclaim();
    }
}

bool X11PanelKeyboard::handleEvent(const xcb_generic_event_t& event) {
    const Verdict verdict = judge(event);
    if (verdict == Verdict::ClosingPanel) {
        m_onClose();
    }
    return verdict != Verdict::Typed;
}

Verdict X11PanelKeyboard::judge(const xcb_generic_event_t& event) {
    const unsigned int type = typeOf(event);
    if (!m_showing) {
        // It was typed before the panel went, but not for what is searched next time.
        const bool isLate =
            type == XCB_KEY_PRESS && eventAs<xcb_key_press_event_t>(event).event == m_window;
        return isLate ? Verdict::Kept : Verdict::Typed;
    }
    switch (type) {
    case XCB_KEY_PRESS:
        return m_showing->judgePress(eventAs<xcb_key_press_event_t>(event));
    case XCB_KEY_RELEASE:
        return m_showing->judgeRelease(eventAs<xcb_key_release_event_t>(event));
    case XCB_FOCUS_OUT:
        m_showing->noteFocusOut(eventAs<xcb_focus_out_event_t>(event));
        return Verdict::Typed;
    default:
        return Verdict::Typed;
    }
}

} // namespace quorvantel::platform
