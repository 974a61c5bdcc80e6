#include "platform/linux/x11/X11ClickMonitor.h"

#include <QCursor>
#include <QGuiApplication>
#include <QWindow>

#include <xcb/xproto.h>

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

bool isOverOwnWindow(const QPoint& location) {
    return QGuiApplication::topLevelAt(location) != nullptr;
}

} // namespace

X11ClickMonitor::X11ClickMonitor(X11RawEvents& rawEvents) : m_rawEvents(rawEvents) {}

std::unique_ptr<ClickMonitor::Token> X11ClickMonitor::observe(std::function<void()> handler) {
    auto observation = m_rawEvents.observe(
        X11RawEvents::Type::ButtonPress, [handler = std::move(handler)](std::uint32_t button) {
            const bool isClick = button == XCB_BUTTON_INDEX_1 || button == XCB_BUTTON_INDEX_3;
            if (isClick && !isOverOwnWindow(QCursor::pos())) {
                handler();
            }
        });
    if (!observation) {
        return nullptr;
    }
    return std::make_unique<ObservationToken>(std::move(observation));
}

} // namespace quorvantel::platform
