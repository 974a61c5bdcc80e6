#pragma once

#include "platform/KeyCapture.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11HotKeys.h"

#include <memory>

namespace quorvantel::platform {

/// Captures keys by an active grab of the keyboard, during which passive grabs sleep: the window
/// manager's shortcuts and other programs' hotkeys.
///
/// When another client holds the keyboard, a menu for instance, the grab is tried again for a
/// moment. Until it succeeds, the capture sees what the launcher's own windows get.
class X11KeyCapture : public KeyCapture, public X11EventHandler {
public:
    /// `keyboard` and `hotKeys` must outlive this object; of what they took for a hotkey it frees
    /// the keyboard.
    X11KeyCapture(const X11Display& display, X11EventDispatcher& events, X11Keyboard& keyboard,
                  X11HotKeys& hotKeys);

    std::unique_ptr<Token> capture(QWindow& window, Handler handler) override;

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    class Grab;

    X11Display m_display;
    X11Keyboard& m_keyboard;
    X11HotKeys& m_hotKeys;
    /// The capture in force; not owned.
    Grab* m_grab = nullptr;
};

} // namespace quorvantel::platform
