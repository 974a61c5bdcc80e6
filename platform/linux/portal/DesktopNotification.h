#pragma once

#include <QDBusConnection>
#include <QString>

namespace quorvantel::platform {

/// Tells the user something in passing (Desktop Notifications Specification); returns at once, and
/// does nothing where the desktop shows no notifications.
void notifyUser(const QDBusConnection& bus, const QString& summary);

} // namespace quorvantel::platform
