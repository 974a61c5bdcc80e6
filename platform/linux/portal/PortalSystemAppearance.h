#pragma once

#include "platform/SystemAppearance.h"

#include <QDBusConnection>
#include <QDBusVariant>

#include <optional>

namespace quorvantel::platform {

/// The desktop's light or dark look, as the XDG Desktop Portal's Settings interface tells it in the
/// namespace "org.freedesktop.appearance", and every change of it.
///
/// Where there is no portal, or the user has no preference, the fallback decides. Asking never
/// holds up the start: the answer arrives as a change.
class PortalSystemAppearance : public SystemAppearance {
    Q_OBJECT

public:
    /// `fallback` must outlive this object.
    PortalSystemAppearance(QDBusConnection bus, const SystemAppearance& fallback);

    bool prefersDark() const override;

    /// Whether the user asked for higher contrast, which translucent surfaces do not give.
    bool reducesTransparency() const override;

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void read(const QString& key);
    void apply(const QString& key, const QVariant& value);

    QDBusConnection m_bus;
    const SystemAppearance& m_fallback;
    /// Absent while the desktop has no preference.
    std::optional<bool> m_prefersDark;
    bool m_hasHighContrast = false;
};

} // namespace quorvantel::platform
