#pragma once

#include <QByteArray>

namespace quorvantel::platform {

/// Tells the desktop that an application is being started on the user's behalf, so that its window
/// may come to the front (Startup Notification Protocol).
class StartupNotifier {
public:
    virtual ~StartupNotifier() = default;

    /// Announces a start and returns its startup ID, which is handed to the program in
    /// DESKTOP_STARTUP_ID; empty when there is nobody to tell. All texts are UTF-8 and may be
    /// empty; `desktopFileId` is the file name of the desktop entry.
    virtual QByteArray begin(const QByteArray& applicationName, const QByteArray& desktopFileId,
                             const QByteArray& iconName) = 0;

    /// Withdraws the announcement, since the program did not start.
    virtual void fail(const QByteArray& id) = 0;
};

} // namespace quorvantel::platform
