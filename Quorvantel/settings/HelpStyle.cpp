#include "settings/HelpStyle.h"

#include <algorithm>

namespace quorvantel {

namespace {

/// What a colour looks like on an opaque background. Overlapping text and lines need opaque
/// colours.
QColor over(const ThemeColor& color, const ThemeColor& background, double opacity) {
    const auto mix = [opacity](double above, double below) {
        return std::clamp(above * opacity + below * (1 - opacity), 0.0, 1.0);
    };
    return QColor::fromRgbF(static_cast<float>(mix(color.red, background.red)),
                            static_cast<float>(mix(color.green, background.green)),
                            static_cast<float>(mix(color.blue, background.blue)));
}

QColor over(const ThemeColor& color, const ThemeColor& background) {
    return over(color, background, color.opacity);
}

bool isDark(const ThemeColor& color) {
    return color.red + color.green + color.blue < 1.5;
}

/// Between two colours, `share` of the way from the first.
ThemeColor between(const ThemeColor& from, const ThemeColor& to, double share) {
    const auto mix = [share](double a, double b) { return a + (b - a) * share; };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue), 1};
}

} // namespace

help::HelpStyle helpStyleFor(const ResolvedTheme& theme) {
    const ThemeColor page = theme.primaryBackground;
    const ThemeColor sidebar = between(page, theme.secondaryBackground, 0.45);
    // Help has much small text, for which the palette's own secondary opacity is too faint.
    constexpr double secondaryOpacity = 0.72;
    return {
        .background = page.toQColor(),
        .sidebarBackground = sidebar.toQColor(),
        .fieldBackground =
            between(page, ThemeColor::white(1), isDark(page) ? 0.03 : 0.7).toQColor(),
        .text = theme.primaryText.toQColor(),
        .secondaryText = over(theme.secondaryText, page, secondaryOpacity),
        .separator = over(theme.secondaryText, page, isDark(page) ? 0.16 : 0.14),
        .accent = between(theme.accent, ThemeColor::black(1), isDark(page) ? 0 : 0.2).toQColor(),
        .selectionFill = over(theme.selectionFill, sidebar),
        .hoverFill = over(theme.secondaryText, sidebar, 0.06),
        .tintedBackground = over(theme.primaryText, page, isDark(page) ? 0.08 : 0.055),
        .matchFill = isDark(page) ? QColor(0x6B, 0x56, 0x14) : QColor(0xFF, 0xE5, 0x8A),
    };
}

} // namespace quorvantel
