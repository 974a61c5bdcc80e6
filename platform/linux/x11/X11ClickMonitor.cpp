#include "platform/linux/x11/X11ClickMonitor.h"

#include <QCoreApplication>

#include <xcb/xinput.h>

#include <optional>
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

/// Whether the event tells that the pointer came into a window of this connection, or that it went;
/// absent for any other event. Crossings come from the core protocol or from the extension.
std::optional<bool> crossing(const xcb_generic_event_t& event, std::uint8_t inputOpcode) {
    const unsigned int type = event.response_type & 0x7FU;
    if (type == XCB_ENTER_NOTIFY || type == XCB_LEAVE_NOTIFY) {
        return type == XCB_ENTER_NOTIFY;
    }
    if (type != XCB_GE_GENERIC) {
        return std::nullopt;
    }
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    const bool isCrossing =
        generic.extension == inputOpcode &&
        (generic.event_type == XCB_INPUT_ENTER || generic.event_type == XCB_INPUT_LEAVE);
    return isCrossing ? std::optional(generic.event_type == XCB_INPUT_ENTER) : std::nullopt;
}

} // namespace

X11ClickMonitor::X11ClickMonitor(const X11Display& display, X11RawEvents& rawEvents)
    : m_rawEvents(rawEvents), m_inputOpcode(display.extensionOpcode(&xcb_input_id)) {
    qApp->installNativeEventFilter(this);
}

X11ClickMonitor::~X11ClickMonitor() {
    if (qApp != nullptr) {
        qApp->removeNativeEventFilter(this);
    }
}

std::unique_ptr<ClickMonitor::Token> X11ClickMonitor::observe(std::function<void()> handler) {
    auto observation =
        m_rawEvents.observe(X11RawEvents::Type::ButtonPress,
                            [this, handler = std::move(handler)](std::uint32_t button) {
                                const bool isClick =
                                    button == XCB_BUTTON_INDEX_1 || button == XCB_BUTTON_INDEX_3;
                                if (isClick && !m_isOverOwnWindow) {
                                    handler();
                                }
                            });
    if (!observation) {
        return nullptr;
    }
    return std::make_unique<ObservationToken>(std::move(observation));
}

bool X11ClickMonitor::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                        qintptr* /*result*/) {
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    m_isOverOwnWindow = crossing(event, m_inputOpcode).value_or(m_isOverOwnWindow);
    return false;
}

} // namespace quorvantel::platform
