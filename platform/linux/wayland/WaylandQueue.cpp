#include "platform/linux/wayland/WaylandQueue.h"

#include <poll.h>
#include <wayland-client-core.h>

#include <algorithm>

namespace quorvantel::platform {

WaylandQueue::WaylandQueue(wl_display& display, wl_proxy& object)
    : m_display(display), m_object(object), m_queue(wl_display_create_queue(&display)) {
    wl_proxy_set_queue(&m_object, m_queue.get());
}

WaylandQueue::~WaylandQueue() {
    wl_proxy_set_queue(&m_object, nullptr);
    // An event that came meanwhile would be lost with the queue.
    wl_display_dispatch_queue_pending(&m_display, m_queue.get());
}

bool WaylandQueue::dispatchUntil(const std::function<bool()>& condition,
                                 std::chrono::milliseconds timeout) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + timeout;
    while (!condition()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0 || !readEvents(left) ||
            wl_display_dispatch_queue_pending(&m_display, m_queue.get()) < 0) {
            return false;
        }
    }
    return true;
}

bool WaylandQueue::readEvents(std::chrono::milliseconds timeout) {
    if (wl_display_prepare_read_queue(&m_display, m_queue.get()) != 0) {
        return true;
    }
    wl_display_flush(&m_display);
    pollfd file{.fd = wl_display_get_fd(&m_display), .events = POLLIN, .revents = 0};
    if (::poll(&file, 1, static_cast<int>(timeout.count())) <= 0) {
        wl_display_cancel_read(&m_display);
        return wl_display_get_error(&m_display) == 0;
    }
    return wl_display_read_events(&m_display) == 0;
}

} // namespace quorvantel::platform
