#pragma once

#include "platform/PanelHost.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11KeyboardGrab.h"

#include <QAbstractNativeEventFilter>
#include <QPointer>
#include <QTimer>

#include <xcb/xcb_keysyms.h>

#include <optional>

namespace quorvantel::platform {

/// Hosts the panel in a window that no window manager manages, and reads the keyboard by an active
/// grab while the panel is shown.
///
/// The grab changes neither the active window nor the input focus, so the application in front
/// types on as soon as the grab ends. When another client holds the keyboard, a menu for instance,
/// the grab is tried again for a moment; if it is still refused, the panel takes the input focus
/// and returns it afterwards.
///
/// An active grab also keeps the keys for volume, brightness, media, screenshots and the like from
/// the clients that listen for them. Such a key is pressed once more, past the grab, when it is
/// let go (XTEST extension). The panel stays for those that only adjust something; for the others,
/// which lock the screen or open an application that wants the keyboard itself, the window is
/// closed first.
class X11PanelHost : public PanelHost, public QAbstractNativeEventFilter {
public:
    explicit X11PanelHost(const X11Display& display);
    ~X11PanelHost() override;

    Qt::WindowFlags windowFlags() const override;
    void takeKeyboard(QWindow& window) override;
    void releaseKeyboard(QWindow& window) override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    struct FreeSymbols {
        void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
    };

    void awaitGrab();
    void checkGrab();
    void takeFocus();
    void returnFocus();
    xcb_keysym_t symbolOf(xcb_keycode_t key);
    bool isDown(xcb_keycode_t key) const;
    void handOver(xcb_keycode_t key, bool keepsPanel);

    X11Display m_display;
    bool m_canFakeInput;
    QPointer<QWindow> m_window;
    QTimer m_retry;
    int m_attemptsLeft = 0;
    /// While the panel has the keyboard or tries to get it; not once it took the input focus.
    std::optional<X11KeyboardGrab> m_grab;
    /// Who had the input focus before the panel took it; none while the grab does.
    xcb_window_t m_previousFocus = XCB_WINDOW_NONE;
    /// Read anew in each showing; exists while the panel has the keyboard.
    std::unique_ptr<xcb_key_symbols_t, FreeSymbols> m_symbols;
};

} // namespace quorvantel::platform
