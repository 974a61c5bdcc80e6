#pragma once

#include "platform/PanelHost.h"
#include "platform/linux/x11/X11Display.h"

#include <QPointer>
#include <QTimer>

namespace quorvantel::platform {

/// Hosts the panel in a window that no window manager manages, and reads the keyboard by an active
/// grab while the panel is shown.
///
/// The grab changes neither the active window nor the input focus, so the application in front
/// types on as soon as the grab ends. When another client holds the keyboard, a menu for instance,
/// the grab is tried again for a moment; if it is still refused, the panel takes the input focus
/// and returns it afterwards.
class X11PanelHost : public PanelHost {
public:
    explicit X11PanelHost(const X11Display& display);

    Qt::WindowFlags windowFlags() const override;
    void takeKeyboard(QWindow& window) override;
    void releaseKeyboard(QWindow& window) override;

private:
    void tryGrab();
    void takeFocus();

    X11Display m_display;
    QPointer<QWindow> m_window;
    QTimer m_retry;
    int m_attemptsLeft = 0;
    /// Who had the input focus before the panel took it; none while the grab does.
    xcb_window_t m_previousFocus = XCB_WINDOW_NONE;
};

} // namespace quorvantel::platform
