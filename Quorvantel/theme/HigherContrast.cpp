#include "theme/HigherContrast.h"

namespace quorvantel {

ResolvedTheme withHigherContrast(ColorScheme scheme, ResolvedTheme theme) {
    const bool isLight = scheme == ColorScheme::Light;
    const auto ink = [isLight](double opacity) {
        return isLight ? ThemeColor::black(opacity) : ThemeColor::white(opacity);
    };
    theme.primaryText = ink(1);
    theme.secondaryText = ink(0.9);
    theme.tertiaryText = theme.secondaryText;
    theme.placeholderText = ink(0.85);
    theme.separator = ink(0.55);
    theme.accent = isLight ? ThemeColor::bytes(11, 95, 88, 1) : ThemeColor::bytes(45, 212, 191, 1);
    theme.selectionFill.opacity = 0.2;
    theme.selectionRing = theme.accent;
    theme.hoverFill = ink(0.1);
    theme.panelBorder = ink(0.6);
    theme.glassBorder = theme.panelBorder;
    return theme;
}

} // namespace quorvantel
