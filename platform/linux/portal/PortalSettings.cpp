#include "platform/linux/portal/PortalSettings.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingReply>

#include <utility>

namespace quorvantel::platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// Some portals wrap a value in a variant of its own.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalSettings::PortalSettings(QDBusConnection bus, const QStringList& namespaces)
    : m_bus(std::move(bus)), m_namespaces(namespaces) {
    // Qt registers the type with its first message only, and a slot of an unknown type is not
    // found.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    qDBusRegisterMetaType<PortalValues>();
    m_bus.connect(service, path, settingsInterface, QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    readAll();
}

void PortalSettings::settingChanged(const QString& group, const QString& key,
                                    const QDBusVariant& value) {
    if (m_namespaces.contains(group)) {
        const PortalValues before = m_values;
        m_values[group][key] = unwrapped(value.variant());
        if (m_values != before) {
            Q_EMIT changed();
        }
    }
}

void PortalSettings::readAll() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, path, settingsInterface, QStringLiteral("ReadAll"));
    call << m_namespaces;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<PortalValues> reply = *finished;
                finished->deleteLater();
                if (reply.isError()) {
                    return;
                }
                PortalValues values = reply.value();
                for (QVariantMap& group : values) {
                    for (QVariant& value : group) {
                        value = unwrapped(value);
                    }
                }
                if (std::exchange(m_values, values) != values) {
                    Q_EMIT changed();
                }
            });
}

} // namespace quorvantel::platform
