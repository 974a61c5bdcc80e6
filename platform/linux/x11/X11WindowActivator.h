#pragma once

#include "platform/WindowActivator.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11UserTime.h"

namespace quorvantel::platform {

/// Asks the window manager for activation (`_NET_ACTIVE_WINDOW`, Extended Window Manager Hints)
/// with the time of the user's last key press or click.
class X11WindowActivator : public WindowActivator {
public:
    /// `userTime` must outlive the activator.
    X11WindowActivator(const X11Display& display, const X11UserTime& userTime);

    void activate(QWindow& window) override;

private:
    X11Display m_display;
    const X11UserTime& m_userTime;
    xcb_atom_t m_activeWindow;
    xcb_atom_t m_userTimeProperty;
};

} // namespace quorvantel::platform
