#include "platform/linux/session/DesktopSystemAppearance.h"

#include <utility>

namespace quorvantel::platform {

DesktopSystemAppearance::DesktopSystemAppearance(const PortalSettings& portal,
                                                 const SettingsManager* manager,
                                                 const SystemAppearance& fallback)
    : m_portal(portal), m_manager(manager), m_fallback(fallback), m_preferences(preferences()) {
    m_toolkit.apply(m_preferences);
    connect(&portal, &PortalSettings::changed, this, &DesktopSystemAppearance::refresh);
    if (manager != nullptr) {
        connect(manager, &SettingsManager::changed, this, &DesktopSystemAppearance::refresh);
    }
    connect(&fallback, &SystemAppearance::changed, this, [this] {
        if (!m_preferences.prefersDark) {
            Q_EMIT changed();
        }
    });
}

bool DesktopSystemAppearance::prefersDark() const {
    return m_preferences.prefersDark.value_or(m_fallback.prefersDark());
}

DesktopPreferences DesktopSystemAppearance::preferences() const {
    return preferencesIn(m_portal.values(),
                         m_manager == nullptr ? XSettingsValues() : m_manager->values());
}

void DesktopSystemAppearance::refresh() {
    const auto answers = [this] { return std::pair(prefersDark(), increasesContrast()); };
    const auto before = answers();
    m_preferences = preferences();
    m_toolkit.apply(m_preferences);
    if (answers() != before) {
        Q_EMIT changed();
    }
}

} // namespace quorvantel::platform
