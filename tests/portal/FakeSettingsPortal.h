#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QObject>

namespace quorvantel::testing {

/// The Settings interface of the XDG Desktop Portal, with the values that the test gives it.
class FakeSettingsPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakeSettingsPortal(QDBusConnection bus) : m_bus(bus) {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~FakeSettingsPortal() override {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void change(const QString& key, unsigned int value) {
        values[key] = value;
        Q_EMIT SettingChanged(QStringLiteral("org.freedesktop.appearance"), key,
                              QDBusVariant(value));
    }

    QMap<QString, unsigned int> values;

public Q_SLOTS:
    QDBusVariant Read(const QString& /*group*/, const QString& key) {
        // A variant in a variant, as the portal answers.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(values.value(key))));
    }

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
};

} // namespace quorvantel::testing
