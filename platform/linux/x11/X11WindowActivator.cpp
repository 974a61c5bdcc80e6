#include "platform/linux/x11/X11WindowActivator.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

/// Who asks, as the requests to the window manager have it.
constexpr std::uint32_t fromApplication = 1;

/// How long a window manager may take to say what its frame measures; it usually takes less than a
/// millisecond or two.
constexpr std::chrono::milliseconds frameExtentsPatience = 100ms;
constexpr std::chrono::milliseconds frameExtentsInterval = 1ms;

QMargins marginsInPoints(const std::vector<std::uint32_t>& extents, qreal scale) {
    if (extents.size() != 4) {
        return {};
    }
    const auto points = [&](std::size_t side) { return qRound(extents[side] / scale); };
    // The property has left, right, top and bottom.
    return {points(0), points(2), points(1), points(3)};
}

} // namespace

X11WindowActivator::X11WindowActivator(const X11Display& display, const X11UserTime& userTime)
    : m_display(display),
      m_userTime(userTime),
      m_activeWindow(display.atom("_NET_ACTIVE_WINDOW")),
      m_currentDesktop(display.atom("_NET_CURRENT_DESKTOP")),
      m_desktopOfWindow(display.atom("_NET_WM_DESKTOP")),
      m_frameExtents(display.atom("_NET_FRAME_EXTENTS")),
      m_requestFrameExtents(display.atom("_NET_REQUEST_FRAME_EXTENTS")),
      m_supported(display.atom("_NET_SUPPORTED")),
      m_userTimeProperty(display.atom("_NET_WM_USER_TIME")) {}

void X11WindowActivator::activate(QWindow& window) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    // Before all else: a window on another desktop counts as minimised under some window managers,
    // which take the user to the desktop of a window that is to be restored.
    moveToCurrentDesktop(id);
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    requestActivation(id);
    xcb_flush(m_display.connection);
}

void X11WindowActivator::moveToCurrentDesktop(xcb_window_t window) const {
    constexpr std::uint32_t allDesktops = 0xFFFFFFFF;
    const auto current = m_display.property(m_display.root, m_currentDesktop);
    const auto actual = m_display.property(window, m_desktopOfWindow);
    // A window that has just been shown is on none yet, and comes to the current one by itself.
    if (!current.empty() && !actual.empty() && actual.front() != allDesktops && actual != current) {
        send(window, m_desktopOfWindow, {current.front(), fromApplication});
    }
}

void X11WindowActivator::requestActivation(xcb_window_t window) const {
    const xcb_timestamp_t time = m_userTime.last();
    if (time != XCB_CURRENT_TIME) {
        xcb_change_property(m_display.connection, XCB_PROP_MODE_REPLACE, window, m_userTimeProperty,
                            XCB_ATOM_CARDINAL, 32, 1, &time);
    }
    send(window, m_activeWindow, {fromApplication, time});
}

QMargins X11WindowActivator::frameMargins(QWindow& window) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    auto extents = m_display.property(id, m_frameExtents);
    const auto supported = m_display.property(m_display.root, m_supported);
    if (extents.empty() && std::ranges::find(supported, m_requestFrameExtents) != supported.end()) {
        send(id, m_requestFrameExtents, {});
        // No event loop runs meanwhile, in which the user could ask for the window once more.
        const QDeadlineTimer deadline(frameExtentsPatience);
        while (extents.empty() && !deadline.hasExpired()) {
            QThread::usleep(std::chrono::microseconds(frameExtentsInterval).count());
            extents = m_display.property(id, m_frameExtents);
        }
    }
    return marginsInPoints(extents, window.devicePixelRatio());
}

void X11WindowActivator::send(xcb_window_t window, xcb_atom_t request,
                              const std::array<std::uint32_t, 2>& arguments) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = request;
    std::ranges::copy(arguments, event.data.data32);
    xcb_send_event(m_display.connection, 0, m_display.root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

} // namespace quorvantel::platform
