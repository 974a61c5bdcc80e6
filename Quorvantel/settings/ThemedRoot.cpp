#include "settings/ThemedRoot.h"

namespace quorvantel {

ThemedRoot::ThemedRoot(const ThemeManager& manager, const platform::SystemAppearance& system,
                       QObject* parent)
    : QObject(parent), m_manager(manager), m_system(system), m_theme(current()) {
    connect(&manager, &ThemeManager::appearanceChanged, this, &ThemedRoot::refresh);
    connect(&manager, &ThemeManager::presetChanged, this, &ThemedRoot::refresh);
    connect(&system, &platform::SystemAppearance::changed, this, &ThemedRoot::refresh);
}

void ThemedRoot::refresh() {
    const ResolvedTheme theme = current();
    if (theme == m_theme) {
        return;
    }
    m_theme = theme;
    Q_EMIT themeChanged();
}

ResolvedTheme ThemedRoot::current() const {
    return resolve(colorSchemeFor(m_manager.appearance(), m_system.prefersDark()),
                   m_manager.preset());
}

ColorScheme colorSchemeFor(ThemeManager::Appearance appearance, bool systemPrefersDark) {
    switch (appearance) {
    case ThemeManager::Appearance::Light:
        return ColorScheme::Light;
    case ThemeManager::Appearance::Dark:
        return ColorScheme::Dark;
    case ThemeManager::Appearance::Auto:
        break;
    }
    return systemPrefersDark ? ColorScheme::Dark : ColorScheme::Light;
}

} // namespace quorvantel
