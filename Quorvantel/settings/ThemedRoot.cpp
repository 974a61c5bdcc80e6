#include "settings/ThemedRoot.h"

namespace quorvantel {

ThemedRoot::ThemedRoot(const ThemeManager& manager, const platform::SystemAppearance& system,
                       QObject* parent)
    : QObject(parent),
      m_manager(manager),
      m_system(system),
      m_theme(current()),
      m_reducesTransparency(system.reducesTransparency()) {
    connect(&manager, &ThemeManager::appearanceChanged, this, &ThemedRoot::refresh);
    connect(&manager, &ThemeManager::presetChanged, this, &ThemedRoot::refresh);
    connect(&system, &platform::SystemAppearance::changed, this, &ThemedRoot::refresh);
}

void ThemedRoot::refresh() {
    const ResolvedTheme theme = current();
    const bool reducesTransparency = m_system.reducesTransparency();
    if (theme == m_theme && reducesTransparency == m_reducesTransparency) {
        return;
    }
    m_theme = theme;
    m_reducesTransparency = reducesTransparency;
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
