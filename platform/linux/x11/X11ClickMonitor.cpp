#include "platform/linux/x11/X11ClickMonitor.h"

#include <QObject>

#include <xcb/xinput.h>

#include <utility>

namespace quorvantel::platform {

namespace {

/// The child of a window that the pointer is in; none when it is in the window itself or elsewhere.
xcb_window_t childUnderPointer(xcb_connection_t* connection, xcb_window_t window) {
    const XcbPointer<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, window), nullptr));
    return reply ? reply->child : xcb_window_t{XCB_WINDOW_NONE};
}

/// The time of an event that tells a window of a pressed button; absent for any other event. The
/// press comes from the core protocol or from the extension.
std::optional<xcb_timestamp_t> pressTime(const xcb_generic_event_t& event,
                                         std::uint8_t inputOpcode) {
    if (typeOf(event) == XCB_BUTTON_PRESS) {
        return eventAs<xcb_button_press_event_t>(event).time;
    }
    if (typeOf(event) != XCB_GE_GENERIC) {
        return std::nullopt;
    }
    const auto& generic = eventAs<xcb_ge_generic_event_t>(event);
    if (generic.extension != inputOpcode || generic.event_type != XCB_INPUT_BUTTON_PRESS) {
        return std::nullopt;
    }
    return eventAs<xcb_input_button_press_event_t>(event).time;
}

} // namespace

class X11ClickMonitor::Observation : public Token {
public:
    Observation(X11ClickMonitor& monitor, std::function<void()> handler)
        : m_monitor(monitor),
          m_handler(std::move(handler)),
          m_presses(monitor.m_rawEvents.observe(
              X11RawEvents::Type::ButtonPress,
              [this](std::uint32_t button, xcb_timestamp_t time) { judge(button, time); })) {}

    bool isPossible() const { return m_presses != nullptr; }

private:
    void judge(std::uint32_t button, xcb_timestamp_t time) {
        const bool isClick = button == XCB_BUTTON_INDEX_1 || button == XCB_BUTTON_INDEX_3;
        if (!isClick || m_monitor.isPointerOverOwnWindow()) {
            return;
        }
        // Queued behind the press in an own window, which the answer about the pointer followed.
        QMetaObject::invokeMethod(
            &m_context,
            [this, time] {
                if (m_monitor.m_ownPress != time) {
                    const auto handler = m_handler;
                    handler();
                }
            },
            Qt::QueuedConnection);
    }

    X11ClickMonitor& m_monitor;
    std::function<void()> m_handler;
    QObject m_context;
    std::unique_ptr<X11RawEvents::Observation> m_presses;
};

X11ClickMonitor::X11ClickMonitor(const X11Display& display, X11EventDispatcher& events,
                                 X11RawEvents& rawEvents)
    : X11EventHandler(events, X11EventRank::Observer),
      m_display(display),
      m_rawEvents(rawEvents),
      m_inputOpcode(display.extensionOpcode(&xcb_input_id)) {}

std::unique_ptr<ClickMonitor::Token> X11ClickMonitor::observe(std::function<void()> handler) {
    auto observation = std::make_unique<Observation>(*this, std::move(handler));
    return observation->isPossible() ? std::move(observation) : nullptr;
}

bool X11ClickMonitor::handleEvent(const xcb_generic_event_t& event) {
    const auto time = pressTime(event, m_inputOpcode);
    m_ownPress = time ? time : m_ownPress;
    return false;
}

bool X11ClickMonitor::isPointerOverOwnWindow() const {
    // A window manager puts its frame around windows, so the launcher's may be further down.
    xcb_window_t window = childUnderPointer(m_display.connection, m_display.root);
    while (window != XCB_WINDOW_NONE && !m_display.isOwn(window)) {
        window = childUnderPointer(m_display.connection, window);
    }
    return window != XCB_WINDOW_NONE;
}

} // namespace quorvantel::platform
