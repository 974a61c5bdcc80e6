#include "theme/ThemedRoot.h"

#include "theme/Contrast.h"
#include "theme/HigherContrast.h"

namespace quorvantel {

ThemedRoot::ThemedRoot(const ThemeManager& manager, const platform::SystemAppearance& system,
                       QObject* parent)
    : QObject(parent),
      m_manager(manager),
      m_system(system),
      m_theme(current()),
      m_reducesTransparency(system.reducesTransparency()),
      m_increasesContrast(system.increasesContrast()) {
    connect(&manager, &ThemeManager::appearanceChanged, this, &ThemedRoot::refresh);
    connect(&manager, &ThemeManager::presetChanged, this, &ThemedRoot::refresh);
    connect(&system, &platform::SystemAppearance::changed, this, &ThemedRoot::refresh);
}

void ThemedRoot::refresh() {
    const ResolvedTheme theme = current();
    const bool reducesTransparency = m_system.reducesTransparency();
    const bool increasesContrast = m_system.increasesContrast();
    if (theme == m_theme && reducesTransparency == m_reducesTransparency &&
        increasesContrast == m_increasesContrast) {
        return;
    }
    m_theme = theme;
    m_reducesTransparency = reducesTransparency;
    m_increasesContrast = increasesContrast;
    Q_EMIT themeChanged();
}

ResolvedTheme ThemedRoot::current() const {
    const ColorScheme scheme = colorSchemeFor(m_manager.appearance(), m_system.prefersDark());
    const ResolvedTheme theme = resolve(scheme, m_manager.preset());
    return m_system.increasesContrast() ? withHigherContrast(scheme, theme) : theme;
}

ThemeColor ThemedRoot::textOnAccent() const {
    constexpr ThemeColor white = ThemeColor::white(1);
    return m_increasesContrast ? mostLegible({white, m_theme.primaryBackground}, m_theme.accent)
                               : white;
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
