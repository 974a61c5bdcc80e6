#include "theme/ResolvedTheme.h"

namespace quorvantel {

namespace {

ThemeColor hex(QStringView text) {
    return colorFromHex(text.toString());
}

ResolvedTheme resolveLight(ThemePreset preset) {
    const bool isTeal = preset == ThemePreset::Teal;
    const bool isGlass = preset == ThemePreset::Glass;
    const ThemeColor secondary = isTeal ? hex(u"#D9E8E3") : hex(u"#E0E2E8");
    const ThemeColor fadedText = ThemeColor::black(isGlass ? 0.46 : 0.42);
    return {
        .primaryBackground = isTeal ? hex(u"#EDF6F3") : hex(u"#F4F5F7"),
        .secondaryBackground = secondary,
        .elevatedBackground = secondary,
        .primaryText = hex(u"#16171A"),
        .secondaryText = fadedText,
        .tertiaryText = fadedText,
        .placeholderText = fadedText,
        .separator = ThemeColor::black(0.08),
        .accent = hex(u"#0D9488"),
        .selectionFill = ThemeColor::bytes(13, 148, 136, 0.14),
        .selectionRing = ThemeColor::bytes(13, 148, 136, 0.32),
        .hoverFill = ThemeColor::white(0.06),
        .panelBorder = ThemeColor::black(0.06),
        .glassTint = ThemeColor::bytes(244, 245, 247, 0.82),
        .glassBorder = ThemeColor::black(0.07),
        .isGlass = isGlass,
    };
}

struct DarkSurface {
    ThemeColor primary;
    ThemeColor secondary;
};

DarkSurface darkSurface(ThemePreset preset) {
    switch (preset) {
    case ThemePreset::Teal:
        return {hex(u"#0F1C1A"), hex(u"#16302C")};
    case ThemePreset::Ink:
        return {hex(u"#0b0c0d"), hex(u"#161719")};
    case ThemePreset::Graphite:
    case ThemePreset::Paper:
    case ThemePreset::Glass:
        break;
    }
    return {hex(u"#161719"), hex(u"#26282c")};
}

double darkSelectionOpacity(ThemePreset preset) {
    switch (preset) {
    case ThemePreset::Teal:
        return 0.24;
    case ThemePreset::Ink:
        return 0.22;
    case ThemePreset::Glass:
        return 0.34;
    case ThemePreset::Graphite:
    case ThemePreset::Paper:
        break;
    }
    return 0.16;
}

ResolvedTheme resolveDark(ThemePreset preset) {
    const DarkSurface surface = darkSurface(preset);
    const bool isGlass = preset == ThemePreset::Glass;
    return {
        .primaryBackground = surface.primary,
        .secondaryBackground = surface.secondary,
        .elevatedBackground = surface.secondary,
        .primaryText = hex(u"#F2F3F4"),
        .secondaryText = ThemeColor::white(0.45),
        .tertiaryText = ThemeColor::white(0.42),
        .placeholderText = ThemeColor::white(isGlass ? 0.42 : 0.38),
        .separator = ThemeColor::white(0.07),
        .accent = preset == ThemePreset::Ink ? hex(u"#1FD1BD") : hex(u"#14B8A6"),
        .selectionFill = ThemeColor::bytes(20, 184, 166, darkSelectionOpacity(preset)),
        .selectionRing = ThemeColor::bytes(20, 184, 166, 0.40),
        .hoverFill = ThemeColor::white(0.06),
        .panelBorder = {},
        .glassTint = ThemeColor::bytes(22, 23, 25, 0.82),
        .glassBorder = ThemeColor::white(0.08),
        .isGlass = isGlass,
    };
}

} // namespace

ResolvedTheme resolve(ColorScheme scheme, ThemePreset preset) {
    return scheme == ColorScheme::Light ? resolveLight(preset) : resolveDark(preset);
}

} // namespace quorvantel
