#include "platform/linux/portal/PortalSystemAppearance.h"

#include <QDBusMessage>
#include <QDBusPendingReply>

#include <utility>

namespace quorvantel::platform {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString contrastKey = QStringLiteral("contrast");

constexpr unsigned int schemeDark = 1;
constexpr unsigned int schemeLight = 2;
constexpr unsigned int contrastHigh = 1;

/// `Read` wraps the value in a variant of its own, which `SettingChanged` does not.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalSystemAppearance::PortalSystemAppearance(QDBusConnection bus,
                                               const SystemAppearance& fallback)
    : m_bus(std::move(bus)), m_fallback(fallback) {
    connect(&fallback, &SystemAppearance::changed, this, [this] {
        if (!m_prefersDark) {
            Q_EMIT changed();
        }
    });
    // Qt registers the type with its first message only, and a slot of an unknown type is not
    // found.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    m_bus.connect(service, path, settingsInterface, QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    read(colorSchemeKey);
    read(contrastKey);
}

bool PortalSystemAppearance::prefersDark() const {
    return m_prefersDark.value_or(m_fallback.prefersDark());
}

bool PortalSystemAppearance::reducesTransparency() const {
    return m_hasHighContrast || m_fallback.reducesTransparency();
}

void PortalSystemAppearance::settingChanged(const QString& group, const QString& key,
                                            const QDBusVariant& value) {
    if (group == appearanceGroup) {
        apply(key, value.variant());
    }
}

void PortalSystemAppearance::read(const QString& key) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, path, settingsInterface, QStringLiteral("Read"));
    call << appearanceGroup << key;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, key](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QDBusVariant> reply = *finished;
                if (!reply.isError()) {
                    apply(key, reply.value().variant());
                }
                finished->deleteLater();
            });
}

void PortalSystemAppearance::apply(const QString& key, const QVariant& value) {
    const unsigned int number = unwrapped(value).toUInt();
    const bool darkBefore = prefersDark();
    const bool reducedBefore = reducesTransparency();
    if (key == colorSchemeKey) {
        m_prefersDark = number == schemeDark    ? std::optional(true)
                        : number == schemeLight ? std::optional(false)
                                                : std::nullopt;
    } else if (key == contrastKey) {
        m_hasHighContrast = number == contrastHigh;
    }
    if (prefersDark() != darkBefore || reducesTransparency() != reducedBefore) {
        Q_EMIT changed();
    }
}

} // namespace quorvantel::platform
