#pragma once

#include "platform/PanelHost.h"
#include "platform/linux/x11/GrabRetry.h"
#include "platform/linux/x11/KeyFate.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11KeyboardGrab.h"
#include "platform/linux/x11/X11VirtualKeyboard.h"

#include <QPointer>

#include <optional>
#include <unordered_map>

namespace quorvantel::platform {

/// Hosts the panel in a window that no window manager manages, and reads the keyboard by an active
/// grab while the panel is shown.
///
/// The grab changes neither the active window nor the input focus, so the application in front
/// types on as soon as the grab ends. When another client holds the keyboard, a menu for instance,
/// the grab is tried again for a moment; if it is still refused, the panel takes the input focus
/// and returns it afterwards.
///
/// An active grab also keeps the desktop's own keys from the clients that listen for them, such as
/// those for the volume or Super+L; `KeyFate` says which they are. Such a key is pressed once more,
/// past the grab, when it is let go. The window is closed after a key that is to bring up something
/// which wants the keyboard itself.
///
/// A key that is still held when the panel goes, such as the Return that launched something, does
/// not repeat itself into the application in front. The server sees to that, so it does not depend
/// on what the launcher is busy with by then.
class X11PanelHost : public PanelHost, public X11EventHandler {
public:
    /// `keyboard` must outlive this object.
    X11PanelHost(const X11Display& display, X11EventDispatcher& events, X11Keyboard& keyboard);

    Qt::WindowFlags windowFlags() const override;
    void takeKeyboard(QWindow& window) override;
    void releaseKeyboard(QWindow& window) override;
    QChar baseCharacter(const QKeyEvent& event) const override;

    /// Whether the panel has the keyboard by a grab, or has asked for it.
    bool decidesAboutTyping() const { return m_grab.has_value(); }

    /// Takes the keyboard again when somebody else has ended the grab.
    void reclaimKeyboard();

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    /// A key that is the desktop's once it is let go.
    struct DesktopKey {
        KeyFate fate;
        /// Of the core protocol; those that belong to its chord.
        std::uint16_t modifiers;
    };

    bool checkGrab();
    void giveGrabUp();
    void endGrab();
    void takeFocus();
    void returnFocus();
    bool handlePress(const xcb_key_press_event_t& event);
    bool handleRelease(const xcb_key_release_event_t& event);
    void handleFocusOut(const xcb_focus_out_event_t& event);
    DesktopKey judge(const xcb_key_press_event_t& event) const;
    xkb_keysym_t symbolOf(const xcb_key_press_event_t& event) const;
    void handOver(xcb_keycode_t key, const DesktopKey& desktopKey);

    X11Display m_display;
    X11EventDispatcher& m_events;
    X11Keyboard& m_keyboard;
    X11VirtualKeyboard m_virtualKeyboard;
    QPointer<QWindow> m_window;
    xcb_window_t m_windowId = XCB_WINDOW_NONE;
    GrabRetry m_retry{[this] { return checkGrab(); }, [this] { giveGrabUp(); }};
    /// While the panel has the keyboard or tries to get it; not once it took the input focus.
    std::optional<X11KeyboardGrab> m_grab;
    /// Who had the input focus before the panel took it; none while the grab does.
    xcb_window_t m_previousFocus = XCB_WINDOW_NONE;
    /// The modifiers that have not been up since before the panel was shown: of its hotkey, from
    /// which people go over to typing before they let go of all, and the locks.
    unsigned int m_modifiersFromBefore = 0;
    std::unordered_map<xcb_keycode_t, DesktopKey> m_desktopKeys;
    /// The key of the panel's own that was pressed last and may still be down, unless a modifier.
    std::optional<xcb_keycode_t> m_heldKey;
};

} // namespace quorvantel::platform
