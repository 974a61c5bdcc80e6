#include "platform/linux/x11/X11ClickMonitor.h"

#include <utility>

namespace quorvantel::platform {

namespace {

class ObservationToken : public ClickMonitor::Token {
public:
    explicit ObservationToken(std::unique_ptr<X11RawEvents::Observation> observation)
        : m_observation(std::move(observation)) {}

private:
    std::unique_ptr<X11RawEvents::Observation> m_observation;
};

/// The child of a window that the pointer is in; none when it is in the window itself or elsewhere.
xcb_window_t childUnderPointer(xcb_connection_t* connection, xcb_window_t window) {
    const XcbPointer<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, window), nullptr));
    return reply ? reply->child : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

X11ClickMonitor::X11ClickMonitor(const X11Display& display, X11RawEvents& rawEvents)
    : m_display(display), m_rawEvents(rawEvents) {}

std::unique_ptr<ClickMonitor::Token> X11ClickMonitor::observe(std::function<void()> handler) {
    auto observation =
        m_rawEvents.observe(X11RawEvents::Type::ButtonPress,
                            [this, handler = std::move(handler)](std::uint32_t button) {
                                const bool isClick =
                                    button == XCB_BUTTON_INDEX_1 || button == XCB_BUTTON_INDEX_3;
                                if (isClick && !isPointerOverOwnWindow()) {
                                    handler();
                                }
                            });
    if (!observation) {
        return nullptr;
    }
    return std::make_unique<ObservationToken>(std::move(observation));
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
