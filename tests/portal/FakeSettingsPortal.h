#pragma once

#include "platform/linux/DesktopPreferences.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace quorvantel::testing {

/// The Settings interface of the XDG Desktop Portal, with the values that the test gives it.
class FakeSettingsPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    FakeSettingsPortal(QDBusConnection bus, platform::PortalValues initial)
        : values(std::move(initial)), m_bus(bus) {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~FakeSettingsPortal() override {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void change(const char* group, const char* key, const QVariant& value) {
        Q_EMIT SettingChanged(QString::fromLatin1(group), QString::fromLatin1(key),
                              QDBusVariant(value));
    }

    platform::PortalValues values;

public Q_SLOTS:
    // By its whole name, which is how the bus knows the type.
    QMap<QString, QVariantMap> ReadAll(const QStringList& /*namespaces*/) { return values; }

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
};

} // namespace quorvantel::testing
