#pragma once

#include "platform/linux/wayland/WaylandGlobals.h"
#include "platform/linux/wayland/WaylandPointer.h"

#include <functional>
#include <memory>

class QRegion;
class QScreen;
class QWindow;
struct wl_output;
struct wl_proxy;
struct wl_surface;

namespace quorvantel::platform {

/// The toolkit's connection to the Wayland compositor. Main thread only.
class WaylandConnection {
public:
    /// The connection of the application object, which must exist and outlive this one. Null when
    /// the application does not run on Wayland.
    static std::unique_ptr<WaylandConnection> ofToolkit();

    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;

    /// Leaves the toolkit's connection as it is to be when the application object ends, before
    /// which no events may be handled any more.
    ~WaylandConnection();

    wl_display& display() const { return m_display; }
    const WaylandGlobals& globals() const { return m_globals; }

    /// The surface of a window; null while the window has none.
    static wl_surface* surfaceOf(QWindow& window);
    /// Null for a screen that stands in for none.
    static wl_output* outputOf(QScreen& screen);

    WaylandPointer<wl_region> makeRegion(const QRegion& region) const;

    /// Calls `handler` once the compositor has carried out all requests up to now: after the events
    /// from before, and before those that know of them. The handler must outlive the result, the
    /// end of which is that of the waiting.
    WaylandPointer<wl_callback> afterRequests(const std::function<void()>& handler) const;

    /// Sends the requests that are still waiting here.
    void flush() const;

private:
    explicit WaylandConnection(wl_display& display);

    wl_display& m_display;
    WaylandGlobals m_globals;
    WaylandPointer<wl_compositor> m_compositor;
};

} // namespace quorvantel::platform
