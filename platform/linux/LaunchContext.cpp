#include "platform/linux/LaunchContext.h"

#include <QByteArrayList>

namespace quorvantel::platform {

GObjectPointer<GAppLaunchContext> makeLaunchContext(const QByteArray& startupId) {
    GObjectPointer<GAppLaunchContext> context(g_app_launch_context_new());
    // Set for the panel's own window.
    for (const char* variable :
         {"QT_WAYLAND_FRAME_CALLBACK_TIMEOUT", "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT"}) {
        g_app_launch_context_unsetenv(context.get(), variable);
    }
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

void presentDesktop(GAppLaunchContext* context, GDesktopAppInfo* entry) {
    const GTextList desktops(
        g_desktop_app_info_get_string_list(entry, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, nullptr));
    if (!desktops || desktops.get()[0] == nullptr) {
        return;
    }
    for (const QByteArray& running : qgetenv("XDG_CURRENT_DESKTOP").split(':')) {
        if (g_strv_contains(desktops.get(), running.constData()) != FALSE) {
            return;
        }
    }
    g_app_launch_context_setenv(context, "XDG_CURRENT_DESKTOP", desktops.get()[0]);
}

} // namespace quorvantel::platform
