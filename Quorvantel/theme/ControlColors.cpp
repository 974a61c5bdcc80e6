#include "theme/ControlColors.h"

#include "theme/Contrast.h"

namespace quorvantel {

namespace {

// The Web Content Accessibility Guidelines 2.1, criteria 1.4.3 and 1.4.11.
constexpr double textContrast = 4.5;
constexpr double outlineContrast = 3;

constexpr ThemeColor amber = ThemeColor::bytes(0xE5, 0x8E, 0x1A, 1);

} // namespace

ControlColors controlColors(const ResolvedTheme& theme) {
    const ThemeColor page = theme.primaryBackground;
    const auto readable = [&theme, page](const ThemeColor& color) {
        const ThemeColor sidebar = theme.secondaryBackground;
        return legible(
            color,
            {page, sidebar, over(theme.selectionFill, page), over(theme.selectionFill, sidebar)},
            textContrast);
    };
    return {
        .accent = readable(theme.accent),
        .secondary = readable(over(theme.secondaryText, page)),
        .warning = readable(amber),
        .outline = legible(over(theme.separator, page), {page}, outlineContrast),
        .onAccent = mostLegible({theme.primaryText, theme.primaryBackground}, theme.accent),
    };
}

} // namespace quorvantel
