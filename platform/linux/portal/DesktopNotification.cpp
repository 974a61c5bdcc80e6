#include "platform/linux/portal/DesktopNotification.h"

#include "platform/Directories.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace quorvantel::platform {

void notifyUser(const QDBusConnection& bus, const QString& summary) {
    constexpr unsigned int replacesNone = 0;
    constexpr int usualTime = -1;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    call << QStringLiteral("Quorvantel") << replacesNone << launcherIdentifier.toString() << summary
         << QString() << QStringList() << QVariantMap() << usualTime;
    bus.send(call);
}

} // namespace quorvantel::platform
