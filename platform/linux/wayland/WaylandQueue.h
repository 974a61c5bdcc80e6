#pragma once

#include "platform/linux/wayland/WaylandPointer.h"

#include <chrono>
#include <functional>

struct wl_display;
struct wl_proxy;

namespace quorvantel::platform {

/// Handles the events of a single object, while those of all others wait for the event loop.
class WaylandQueue {
public:
    /// From now on, and until the end of the queue, only `dispatchUntil` handles the events of
    /// `object`, none of which may be waiting already. Connection and object must outlive the
    /// queue.
    WaylandQueue(wl_display& display, wl_proxy& object);
    WaylandQueue(const WaylandQueue&) = delete;
    WaylandQueue& operator=(const WaylandQueue&) = delete;
    ~WaylandQueue();

    /// Handles events until the condition holds, and says whether it came to hold within the time.
    /// False at once when the connection is lost.
    bool dispatchUntil(const std::function<bool()>& condition, std::chrono::milliseconds timeout);

private:
    bool readEvents(std::chrono::milliseconds timeout);

    wl_display& m_display;
    wl_proxy& m_object;
    WaylandPointer<wl_event_queue> m_queue;
};

} // namespace quorvantel::platform
