#include "platform/linux/x11/X11UserTime.h"

#include <QCoreApplication>

namespace quorvantel::platform {

X11UserTime::X11UserTime() {
    qApp->installNativeEventFilter(this);
}

X11UserTime::~X11UserTime() {
    if (qApp != nullptr) {
        qApp->removeNativeEventFilter(this);
    }
}

bool X11UserTime::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                    qintptr* /*result*/) {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    const unsigned int type = event->response_type & 0x7FU;
    if (type == XCB_KEY_PRESS) {
        m_last = static_cast<const xcb_key_press_event_t*>(message)->time;
    } else if (type == XCB_BUTTON_PRESS) {
        m_last = static_cast<const xcb_button_press_event_t*>(message)->time;
    }
    return false;
}

} // namespace quorvantel::platform
