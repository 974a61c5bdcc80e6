#include "shell/HelpStyle.h"

#include "theme/Contrast.h"

namespace quorvantel {

namespace {

/// Between a text and its background, by the Web Content Accessibility Guidelines 2.1.
constexpr double textContrast = 4.5;

ThemeColor faded(ThemeColor color, double opacity) {
    color.opacity = opacity;
    return color;
}

bool isDark(const ThemeColor& color) {
    return color.red + color.green + color.blue < 1.5;
}

} // namespace

help::HelpStyle helpStyleFor(const ResolvedTheme& theme) {
    const ThemeColor page = theme.primaryBackground;
    const ThemeColor sidebar = between(page, theme.secondaryBackground, 0.45);
    const ThemeColor field = between(page, ThemeColor::white(1), isDark(page) ? 0.03 : 0.7);
    const ThemeColor selection = over(theme.selectionFill, sidebar);
    const ThemeColor hover = over(faded(theme.secondaryText, 0.06), sidebar);
    const ThemeColor tinted = over(faded(theme.primaryText, isDark(page) ? 0.08 : 0.055), page);
    const ThemeColor match = isDark(page) ? ThemeColor::bytes(0x6B, 0x56, 0x14, 1)
                                          : ThemeColor::bytes(0xFF, 0xE5, 0x8A, 1);
    const auto readable = [&](const ThemeColor& color) {
        return legible(color, {page, sidebar, field, selection, hover, tinted}, textContrast);
    };
    // Help has much small text, for which the palette's own secondary opacity is too faint.
    constexpr double secondaryOpacity = 0.72;
    const ThemeColor accent = readable(theme.accent);
    return {
        .background = page.toQColor(),
        .sidebarBackground = sidebar.toQColor(),
        .fieldBackground = field.toQColor(),
        .text = theme.primaryText.toQColor(),
        .secondaryText =
            readable(over(faded(theme.secondaryText, secondaryOpacity), page)).toQColor(),
        .separator = over(faded(theme.secondaryText, isDark(page) ? 0.16 : 0.14), page).toQColor(),
        .accent = accent.toQColor(),
        .selectedText = mostLegible({theme.primaryText, page}, accent).toQColor(),
        .selectionFill = selection.toQColor(),
        .hoverFill = hover.toQColor(),
        .tintedBackground = tinted.toQColor(),
        .matchFill = match.toQColor(),
    };
}

} // namespace quorvantel
