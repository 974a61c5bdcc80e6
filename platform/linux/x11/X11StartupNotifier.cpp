#include "platform/linux/x11/X11StartupNotifier.h"

// The library marks its interface as unstable and wants users to say that they know.
#define SN_API_NOT_YET_FROZEN
#include <libsn/sn.h>

namespace quorvantel::platform {

namespace {

constexpr int screenNumber = 0;

} // namespace

void X11StartupNotifier::Unref::operator()(SnDisplay* display) const {
    sn_display_unref(display);
}

void X11StartupNotifier::Unref::operator()(SnLauncherContext* context) const {
    sn_launcher_context_unref(context);
}

X11StartupNotifier::X11StartupNotifier(const X11Display& display, const X11UserTime& userTime)
    : m_userTime(userTime), m_display(sn_xcb_display_new(display.connection, nullptr, nullptr)) {}

X11StartupNotifier::~X11StartupNotifier() = default;

void X11StartupNotifier::begin(const QByteArray& applicationName,
                               const QByteArray& /*desktopFileId*/, const QByteArray& iconName,
                               Announced announced) {
    m_context.reset(sn_launcher_context_new(m_display.get(), screenNumber));
    sn_launcher_context_set_name(m_context.get(), applicationName.constData());
    sn_launcher_context_set_description(m_context.get(), applicationName.constData());
    if (!iconName.isEmpty()) {
        sn_launcher_context_set_icon_name(m_context.get(), iconName.constData());
    }
    sn_launcher_context_initiate(m_context.get(), "quorvantel", applicationName.constData(),
                                 m_userTime.last());
    announced(sn_launcher_context_get_startup_id(m_context.get()));
}

void X11StartupNotifier::fail(const QByteArray& id) {
    if (m_context && id == sn_launcher_context_get_startup_id(m_context.get())) {
        sn_launcher_context_complete(m_context.get());
        m_context.reset();
    }
}

} // namespace quorvantel::platform
