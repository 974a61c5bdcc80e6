#include "platform/linux/LaunchContext.h"

namespace quorvantel::platform {

GObjectPointer<GAppLaunchContext> makeLaunchContext(const QByteArray& startupId) {
    GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
    // Toolkits read the one name on X11 and the other one on Wayland.
    for (const char* variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
        if (startupId.isEmpty()) {
            g_app_launch_context_unsetenv(context.get(), variable);
        } else {
            g_app_launch_context_setenv(context.get(), variable, startupId.constData());
        }
    }
    return context;
}

} // namespace quorvantel::platform
