#pragma once

#include "platform/linux/StartupNotifier.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11UserTime.h"

#include <memory>

struct SnDisplay;
struct SnLauncherContext;

namespace quorvantel::platform {

/// Announces starts to the window manager with libstartup-notification.
class X11StartupNotifier : public StartupNotifier {
public:
    /// `userTime` must outlive the notifier.
    X11StartupNotifier(const X11Display& display, const X11UserTime& userTime);
    ~X11StartupNotifier() override;

    void begin(const QByteArray& applicationName, const QByteArray& desktopFileId,
               const QByteArray& iconName, Announced announced) override;
    void fail(const QByteArray& id) override;

private:
    struct Unref {
        void operator()(SnDisplay* display) const;
        void operator()(SnLauncherContext* context) const;
    };

    const X11UserTime& m_userTime;
    std::unique_ptr<SnDisplay, Unref> m_display;
    /// The last announcement. Older ones are the window manager's business alone: nobody learns
    /// here whether they succeeded.
    std::unique_ptr<SnLauncherContext, Unref> m_context;
};

} // namespace quorvantel::platform
