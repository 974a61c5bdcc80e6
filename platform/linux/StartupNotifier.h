#pragma once

#include <QByteArray>

#include <functional>

namespace quorvantel::platform {

/// Tells the desktop that an application is being started on the user's behalf, so that its window
/// may come to the front (Startup Notification Protocol, XDG Activation Protocol).
class StartupNotifier {
public:
    virtual ~StartupNotifier() = default;

    /// Receives what is to be handed to the program in DESKTOP_STARTUP_ID and
    /// XDG_ACTIVATION_TOKEN; empty when there is nobody to tell.
    using Announced = std::function<void(const QByteArray& id)>;

    /// Announces a start on behalf of the user's last deed in the launcher. All texts are UTF-8 and
    /// may be empty; `desktopFileId` is the file name of the desktop entry. `announced` is called
    /// once, possibly before this returns and otherwise a moment later, unless the notifier is gone
    /// by then.
    virtual void begin(const QByteArray& applicationName, const QByteArray& desktopFileId,
                       const QByteArray& iconName, Announced announced) = 0;

    /// Withdraws the announcement, since the program did not start.
    virtual void fail(const QByteArray& id) = 0;
};

} // namespace quorvantel::platform
