#include "platform/linux/LaunchContext.h"

namespace quorvantel::platform {

namespace {

struct LaunchContext {
    GAppLaunchContext parent;
    gchar* startupId;
};

struct LaunchContextClass {
    GAppLaunchContextClass parent;
};

G_DEFINE_TYPE(LaunchContext, quorvantel_launch_context, G_TYPE_APP_LAUNCH_CONTEXT)

/// GIO asks this for D-Bus activation, where there is no environment to read the ID from.
char* copyStartupId(GAppLaunchContext* context, GAppInfo* /*info*/, GList* /*files*/) {
    return g_strdup(reinterpret_cast<LaunchContext*>(context)->startupId);
}

void finalize(GObject* object) {
    g_free(reinterpret_cast<LaunchContext*>(object)->startupId);
    G_OBJECT_CLASS(quorvantel_launch_context_parent_class)->finalize(object);
}

void quorvantel_launch_context_init(LaunchContext* context) {
    context->startupId = nullptr;
}

void quorvantel_launch_context_class_init(LaunchContextClass* type) {
    G_OBJECT_CLASS(type)->finalize = finalize;
    type->parent.get_startup_notify_id = copyStartupId;
}

} // namespace

GObjectPointer<GAppLaunchContext> makeLaunchContext(const QByteArray& startupId) {
    GObjectPointer<GAppLaunchContext> context(static_cast<GAppLaunchContext*>(
        g_object_new(quorvantel_launch_context_get_type(), nullptr)));
    // Toolkits read the one name on X11 and the other one on Wayland; GIO itself knows the first.
    for (const char* variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
        if (startupId.isEmpty()) {
            g_app_launch_context_unsetenv(context.get(), variable);
        } else {
            g_app_launch_context_setenv(context.get(), variable, startupId.constData());
        }
    }
    if (!startupId.isEmpty()) {
        reinterpret_cast<LaunchContext*>(context.get())->startupId =
            g_strdup(startupId.constData());
    }
    return context;
}

} // namespace quorvantel::platform
