#pragma once

#include "platform/linux/DesktopPreferences.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace quorvantel::platform {

/// What the XDG Desktop Portal's Settings interface tells in some namespaces, and every change of
/// it. Nothing where there is no portal.
///
/// Asking never holds up the start: the answer arrives as a change.
class PortalSettings : public QObject {
    Q_OBJECT

public:
    PortalSettings(QDBusConnection bus, const QStringList& namespaces);

    const PortalValues& values() const { return m_values; }

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAll();

    QDBusConnection m_bus;
    QStringList m_namespaces;
    PortalValues m_values;
};

} // namespace quorvantel::platform
