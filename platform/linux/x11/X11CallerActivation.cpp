#include "platform/linux/x11/X11CallerActivation.h"

// The library marks its interface as unstable and wants users to say that they know.
#define SN_API_NOT_YET_FROZEN
#include <libsn/sn.h>

namespace quorvantel::platform {

namespace {

constexpr int screenNumber = 0;

} // namespace

void X11CallerActivation::Unref::operator()(SnDisplay* display) const {
    sn_display_unref(display);
}

X11CallerActivation::X11CallerActivation(const X11Display& display, X11UserTime& userTime)
    : m_display(display), m_userTime(userTime) {}

void X11CallerActivation::during(const CallerToken& token, const std::function<void()>& task) {
    if (token.startupId.isEmpty()) {
        task();
        return;
    }
    if (!m_notifications) {
        // Asks the server several times, so not at the start.
        m_notifications.reset(sn_xcb_display_new(m_display.connection, nullptr, nullptr));
    }
    SnLauncheeContext* const context =
        sn_launchee_context_new(m_notifications.get(), screenNumber, token.startupId.constData());
    if (sn_launchee_context_get_id_has_timestamp(context) != 0) {
        m_userTime.note(static_cast<xcb_timestamp_t>(sn_launchee_context_get_timestamp(context)));
    }
    task();
    sn_launchee_context_complete(context);
    sn_launchee_context_unref(context);
}

} // namespace quorvantel::platform
