#pragma once

#include "platform/PanelContent.h"
#include "platform/PanelSurface.h"

#include <Qt>

#include <memory>

namespace quorvantel::platform {

/// Puts the panel on the screen as a floating surface that takes typing without becoming the
/// active application's window.
///
/// On macOS this is a non-activating `NSPanel`; on X11 an unmanaged window and an active keyboard
/// grab, which leaves the window manager's active window as it is; on Wayland a layer surface or,
/// where there are none, an ordinary toplevel. Main thread only.
class PanelHost {
public:
    virtual ~PanelHost() = default;

    /// The flags that the content's window is to be created with. Everything else about it (role,
    /// level, place) is the surface's affair.
    virtual Qt::WindowFlags windowFlags() const = 0;

    /// Makes the surface that carries the content, hidden at first. The content's window has been
    /// created with `windowFlags()` and an alpha channel, but never been shown; it must outlive the
    /// surface, as must the host. One surface at a time.
    virtual std::unique_ptr<PanelSurface> makeSurface(const PanelContent& content) = 0;
};

} // namespace quorvantel::platform
