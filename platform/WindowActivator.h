#pragma once

class QWindow;

namespace quorvantel::platform {

/// Brings windows of the launcher to the front. Main thread only.
class WindowActivator {
public:
    virtual ~WindowActivator() = default;

    /// Brings a shown window to the front and gives it the keyboard, on behalf of the user's last
    /// key press or click in the launcher, so that the desktop does not take it for a window that
    /// steals the focus.
    virtual void activate(QWindow& window) = 0;
};

} // namespace quorvantel::platform
