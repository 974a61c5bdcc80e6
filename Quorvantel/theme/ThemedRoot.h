#pragma once

#include "platform/SystemAppearance.h"
#include "theme/ResolvedTheme.h"
#include "theme/ThemeManager.h"

#include <QObject>

namespace quorvantel {

/// The palette at the root of a tree of views: the user's choices resolved for the scheme in force.
///
/// Views read `theme()` when they draw and repaint on `themeChanged`, which fires only when a
/// colour, or a wish for opaque surfaces or more contrast, really changes. Main thread only.
class ThemedRoot : public QObject {
    Q_OBJECT

public:
    /// `manager` and `system` must outlive the root.
    ThemedRoot(const ThemeManager& manager, const platform::SystemAppearance& system,
               QObject* parent = nullptr);

    const ResolvedTheme& theme() const { return m_theme; }

    /// Whether surfaces are to be drawn opaque even where the palette is glass.
    bool reducesTransparency() const { return m_reducesTransparency; }

    /// Whether what is selected or under the pointer is to be outlined, and texts on the accent
    /// colour are to be as legible as they can be. The palette has more contrast already.
    bool increasesContrast() const { return m_increasesContrast; }

    /// The colour of a text on the accent colour.
    ThemeColor textOnAccent() const;

Q_SIGNALS:
    void themeChanged();

private:
    void refresh();
    ResolvedTheme current() const;

    const ThemeManager& m_manager;
    const platform::SystemAppearance& m_system;
    ResolvedTheme m_theme;
    bool m_reducesTransparency;
    bool m_increasesContrast;
};

/// The scheme for an appearance choice, given what the system prefers.
ColorScheme colorSchemeFor(ThemeManager::Appearance appearance, bool systemPrefersDark);

} // namespace quorvantel
