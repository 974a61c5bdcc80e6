#pragma once

#include <QMargins>

class QWindow;

namespace quorvantel::platform {

/// Brings ordinary windows of the launcher to the front. Main thread only.
class WindowActivator {
public:
    virtual ~WindowActivator() = default;

    /// Brings a shown window, which may be minimised, to the front on the virtual desktop that the
    /// user is on and gives it the keyboard, on behalf of the user's last key press or click in the
    /// launcher, so that the desktop does not take it for a window that steals the focus. The user
    /// is never taken to another virtual desktop. Where the desktop has to be asked first, this
    /// takes effect once it has answered, and not for a window that is closed by then.
    virtual void activate(QWindow& window) = 0;

    /// What the desktop adds around a window, such as its title bar, in points; of a window that is
    /// yet to be shown as well; nothing where the desktop does not tell. May wait a moment for the
    /// answer.
    virtual QMargins frameMargins(QWindow& window) = 0;
};

} // namespace quorvantel::platform
