#include "support/ForeignGrab.h"

#include "support/WaitUntil.h"

#include <stdexcept>

namespace quorvantel::testing {

ForeignGrab::ForeignGrab(const QByteArray& display) : m_connection(display) {
    if (!waitUntil([this] { return grab(); })) {
        throw std::runtime_error("the keyboard cannot be grabbed");
    }
}

ForeignGrab::~ForeignGrab() {
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
    m_connection.synchronize();
}

bool ForeignGrab::grab() {
    const XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
        m_connection.get(),
        xcb_grab_keyboard(m_connection.get(), 0, m_connection.root(), XCB_CURRENT_TIME,
                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

} // namespace quorvantel::testing
