#include "support/Pointer.h"

#include <xcb/xtest.h>

namespace quorvantel::testing {

void Pointer::moveTo(QPoint position) {
    send(XCB_MOTION_NOTIFY, 0, position);
}

void Pointer::hold(Button button) {
    send(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button), {});
}

void Pointer::release(Button button) {
    send(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button), {});
}

void Pointer::click(QPoint position, Button button) {
    moveTo(position);
    hold(button);
    release(button);
}

QPoint Pointer::position() const {
    const XReply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        m_connection.get(), xcb_query_pointer(m_connection.get(), m_connection.root()), nullptr));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

void Pointer::send(std::uint8_t eventType, std::uint8_t detail, QPoint position) {
    xcb_test_fake_input(m_connection.get(), eventType, detail, XCB_CURRENT_TIME,
                        m_connection.root(), static_cast<std::int16_t>(position.x()),
                        static_cast<std::int16_t>(position.y()), 0);
    m_connection.synchronize();
}

} // namespace quorvantel::testing
