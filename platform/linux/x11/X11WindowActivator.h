#pragma once

#include "platform/WindowActivator.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11UserTime.h"

#include <array>
#include <cstdint>

namespace quorvantel::platform {

/// Asks the window manager for activation (`_NET_ACTIVE_WINDOW`, Extended Window Manager Hints)
/// with the time of the user's last key press or click. A window on another virtual desktop is
/// fetched first: some window managers would only mark it as urgent there.
class X11WindowActivator : public WindowActivator {
public:
    /// `userTime` must outlive the activator.
    X11WindowActivator(const X11Display& display, const X11UserTime& userTime);

    void activate(QWindow& window) override;
    QMargins frameMargins(QWindow& window) override;

private:
    void moveToCurrentDesktop(xcb_window_t window) const;
    void requestActivation(xcb_window_t window) const;
    /// Sends the window manager a request about a window.
    void send(xcb_window_t window, xcb_atom_t request,
              const std::array<std::uint32_t, 2>& arguments) const;

    X11Display m_display;
    const X11UserTime& m_userTime;
    xcb_atom_t m_activeWindow;
    xcb_atom_t m_currentDesktop;
    xcb_atom_t m_desktopOfWindow;
    xcb_atom_t m_frameExtents;
    xcb_atom_t m_requestFrameExtents;
    xcb_atom_t m_supported;
    xcb_atom_t m_userTimeProperty;
};

} // namespace quorvantel::platform
