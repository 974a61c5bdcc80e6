#pragma once

#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11PanelShowing.h"

#include <functional>
#include <optional>

namespace quorvantel::platform {

/// Gives the keyboard to the panel while it is shown, and hands it the keys that are its own.
class X11PanelKeyboard : public X11EventHandler {
public:
    /// `keyboard` must outlive this object.
    X11PanelKeyboard(const X11Display& display, X11EventDispatcher& events, X11Keyboard& keyboard);

    /// Gives the keyboard to a mapped window. `onClose` is called when the user has pressed a key
    /// that is to bring up something else which needs the keyboard, so that the panel is to go.
    void take(QWindow& window, std::function<void()> onClose);

    /// Gives the keyboard back to the application in front. Harmless when the panel does not have
    /// it.
    void release() { m_showing.reset(); }

    /// Whether the panel has the keyboard by a grab, or has asked for it.
    bool decidesAboutTyping() const { return m_showing && m_showing->isGrabbing(); }

    /// Takes the keyboard again when somebody else has ended the grab.
    void reclaim();

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    X11PanelShowing::Verdict judge(const xcb_generic_event_t& event);

    X11Display m_display;
    X11EventDispatcher& m_events;
    X11Keyboard& m_keyboard;
    X11VirtualKeyboard m_virtualKeyboard;
    /// The window of the latest showing.
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::function<void()> m_onClose;
    /// Exists while the panel has the keyboard or tries to get it.
    std::optional<X11PanelShowing> m_showing;
};

} // namespace quorvantel::platform
