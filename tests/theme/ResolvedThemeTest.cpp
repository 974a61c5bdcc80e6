#include "theme/Contrast.h"
#include "theme/HigherContrast.h"

#include <gtest/gtest.h>

namespace quorvantel {

void PrintTo(const ThemeColor& color, std::ostream* stream) {
    *stream << color.red << ' ' << color.green << ' ' << color.blue << " at " << color.opacity;
}

namespace {

using namespace Qt::StringLiterals;

TEST(ThemeColorTest, ParsesSixDigitsWithTheirDecorations) {
    const ThemeColor teal = ThemeColor::bytes(20, 184, 166, 1);
    const std::pair<const char*, ThemeColor> cases[] = {
        {" #14b8a6 ", teal},
        {"14B8A6", teal},
        {"\n#14B8A6\t", teal},
        {"0x1234", ThemeColor::bytes(0, 18, 52, 1)},
        {"12G456", ThemeColor::bytes(0, 0, 18, 1)},
        {"0xGGGG", ThemeColor::bytes(0, 0, 0, 1)},
        {"#  12AB", ThemeColor::bytes(0, 0x12, 0xAB, 1)},
        {"# 12ABC", ThemeColor::bytes(1, 0x2A, 0xBC, 1)},
    };
    for (const auto& [text, color] : cases) {
        EXPECT_EQ(colorFromHex(QString::fromUtf8(text)), color) << text;
    }
    EXPECT_DOUBLE_EQ(teal.red, 0.0784313725490196);
    for (const char* const text : {"#14B8A", "#14B8A6F", "GGGGGG", "##14B8A", "", "#", "xyz"}) {
        EXPECT_EQ(colorFromHex(QString::fromUtf8(text)), ThemeColor()) << text;
    }
}

TEST(ResolvedThemeTest, PresetsChangeTheSurfaceAndLittleElse) {
    const ResolvedTheme lightTeal = resolve(ColorScheme::Light, ThemePreset::Teal);
    EXPECT_EQ(lightTeal.primaryBackground, colorFromHex(u"#EDF6F3"_s));
    EXPECT_EQ(lightTeal.elevatedBackground, lightTeal.secondaryBackground);
    EXPECT_EQ(lightTeal.accent, colorFromHex(u"#0D9488"_s));

    const ResolvedTheme ink = resolve(ColorScheme::Dark, ThemePreset::Ink);
    EXPECT_EQ(ink.primaryBackground, colorFromHex(u"#0b0c0d"_s));
    EXPECT_EQ(ink.secondaryBackground, colorFromHex(u"#161719"_s));
    EXPECT_EQ(ink.accent, colorFromHex(u"#1FD1BD"_s));
    EXPECT_EQ(ink.selectionFill, ThemeColor::bytes(20, 184, 166, 0.22));

    // A retired preset that only differs in the dark scheme is graphite in the light one.
    EXPECT_EQ(resolve(ColorScheme::Light, ThemePreset::Paper),
              resolve(ColorScheme::Light, ThemePreset::Graphite));
    EXPECT_EQ(resolve(ColorScheme::Light, ThemePreset::Ink),
              resolve(ColorScheme::Light, ThemePreset::Graphite));
    EXPECT_EQ(resolve(ColorScheme::Dark, ThemePreset::Paper),
              resolve(ColorScheme::Dark, ThemePreset::Graphite));

    const ResolvedTheme glass = resolve(ColorScheme::Dark, ThemePreset::Glass);
    EXPECT_TRUE(glass.isGlass);
    EXPECT_EQ(glass.selectionFill.opacity, 0.34);
    EXPECT_EQ(glass.placeholderText, ThemeColor::white(0.42));
    EXPECT_EQ(resolve(ColorScheme::Light, ThemePreset::Glass).tertiaryText,
              ThemeColor::black(0.46));
}

TEST(ResolvedThemeTest, WhatMarksARowIsTheAccentAndWhatSeparatesIsInk) {
    struct Opacities {
        ColorScheme scheme;
        ThemeColor separator;
        ThemeColor glassBorder;
        double fill;
        double ring;
    };
    const Opacities cases[] = {
        {ColorScheme::Light, ThemeColor::black(0.08), ThemeColor::black(0.07), 0.14, 0.32},
        {ColorScheme::Dark, ThemeColor::white(0.07), ThemeColor::white(0.08), 0.16, 0.40},
    };
    for (const Opacities& expected : cases) {
        const ResolvedTheme theme = resolve(expected.scheme, ThemePreset::Graphite);
        const auto at = [](ThemeColor color, double opacity) {
            color.opacity = opacity;
            return color;
        };
        EXPECT_EQ(theme.selectionFill, at(theme.accent, expected.fill));
        EXPECT_EQ(theme.selectionRing, at(theme.accent, expected.ring));
        EXPECT_EQ(theme.glassTint, at(theme.primaryBackground, 0.82));
        EXPECT_EQ(theme.hoverFill, ThemeColor::white(0.06));
        EXPECT_EQ(theme.separator, expected.separator);
        EXPECT_EQ(theme.glassBorder, expected.glassBorder);
    }
}

TEST(HigherContrastTest, TextsAndLinesStandOutFromAllThatTheyAreDrawnOn) {
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        for (const ThemePreset preset : {ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass}) {
            const ResolvedTheme theme = withHigherContrast(scheme, resolve(scheme, preset));
            const auto contrast = [](const ThemeColor& color, const ThemeColor& background) {
                return contrastRatio(over(color, background), background);
            };
            for (const ThemeColor& page : {theme.primaryBackground, theme.secondaryBackground}) {
                for (const ThemeColor& background :
                     {page, over(theme.selectionFill, page), over(theme.hoverFill, page)}) {
                    for (const ThemeColor& text : {theme.primaryText, theme.secondaryText,
                                                   theme.tertiaryText, theme.placeholderText}) {
                        EXPECT_GE(contrast(text, background), 7);
                    }
                    EXPECT_GE(contrast(theme.accent, background), 3);
                }
                for (const ThemeColor& line :
                     {theme.separator, theme.panelBorder, theme.selectionRing}) {
                    EXPECT_GE(contrast(line, page), 3);
                }
            }
        }
    }
}

} // namespace
} // namespace quorvantel
