#pragma once

#include "platform/linux/x11/GrabRetry.h"
#include "platform/linux/x11/KeyFate.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11KeyboardGrab.h"
#include "platform/linux/x11/X11VirtualKeyboard.h"

#include <QPointer>
#include <QWindow>

#include <optional>
#include <unordered_map>

namespace quorvantel::platform {

/// The panel's hold of the keyboard in one showing: from the moment that it is shown until it gives
/// the keyboard back, which the end of this object does.
///
/// The keyboard is read by an active grab, which changes neither the active window nor the input
/// focus, so the application in front types on as soon as the grab ends. When another client holds
/// the keyboard, a menu for instance, the grab is tried again for a moment; if it is still refused,
/// the panel takes the input focus and returns it afterwards.
///
/// An active grab also keeps the desktop's own keys from the clients that listen for them, such as
/// those for the volume or Super+L; `KeyFate` says which they are. Such a key is pressed once more,
/// past the grab, when it is let go.
///
/// A key that is still held when the panel goes, such as the Return that launched something, does
/// not repeat itself into the application in front. The server sees to that, so it does not depend
/// on what the launcher is busy with by then.
class X11PanelShowing {
public:
    /// What becomes of a key event.
    enum class Verdict {
        Typed,        ///< It is for whom it was sent to.
        Kept,         ///< Nobody else is to see it.
        ClosingPanel, ///< Nobody else is to see it, and the panel is to go.
    };

    /// Asks for the keyboard for a mapped window, which may be destroyed meanwhile. `events`,
    /// `keyboard` and `virtualKeyboard` must outlive this object.
    X11PanelShowing(const X11Display& display, X11EventDispatcher& events, X11Keyboard& keyboard,
                    X11VirtualKeyboard& virtualKeyboard, QWindow& window);
    X11PanelShowing(const X11PanelShowing&) = delete;
    X11PanelShowing& operator=(const X11PanelShowing&) = delete;
    ~X11PanelShowing();

    /// Whether the panel has the keyboard by a grab, or has asked for it.
    bool isGrabbing() const { return m_grab.has_value(); }

    /// Takes the keyboard again when somebody else has ended the grab.
    void reclaim();

    Verdict judgePress(const xcb_key_press_event_t& event);
    Verdict judgeRelease(const xcb_key_release_event_t& event);
    void noteFocusOut(const xcb_focus_out_event_t& event);

private:
    /// A key that is the desktop's once it is let go.
    struct DesktopKey {
        KeyFate fate;
        /// Of the core protocol; those that belong to its chord.
        std::uint16_t modifiers;
    };

    bool checkGrab();
    void giveGrabUp();
    void takeFocus();
    void returnFocus();
    DesktopKey judge(const xcb_key_press_event_t& event) const;
    xkb_keysym_t symbolOf(const xcb_key_press_event_t& event) const;
    void handOver(xcb_keycode_t key, const DesktopKey& desktopKey);

    X11Display m_display;
    X11Keyboard& m_keyboard;
    X11VirtualKeyboard& m_virtualKeyboard;
    QPointer<QWindow> m_window;
    xcb_window_t m_windowId;
    /// Absent once the panel took the input focus instead.
    std::optional<X11KeyboardGrab> m_grab;
    /// Who had the input focus before the panel took it; absent while the grab does.
    std::optional<xcb_window_t> m_previousFocus;
    /// The modifiers that have not been up since before the panel was shown: of its hotkey, from
    /// which people go over to typing before they let go of all, and the locks.
    unsigned int m_modifiersFromBefore = KeyModifiers::all;
    std::unordered_map<xcb_keycode_t, DesktopKey> m_desktopKeys;
    /// The key of the panel's own that was pressed last and may still be down, unless a modifier.
    std::optional<xcb_keycode_t> m_heldKey;
    GrabRetry m_retry{[this] { return checkGrab(); }, [this] { giveGrabUp(); }};
};

} // namespace quorvantel::platform
