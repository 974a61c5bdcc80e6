#include "settings/ResolvedTheme.h"

#include <gtest/gtest.h>

namespace quorvantel {

void PrintTo(const ThemeColor& color, std::ostream* stream) {
    *stream << color.red << ' ' << color.green << ' ' << color.blue << " at " << color.opacity;
}

namespace {

TEST(ThemeColorTest, ParsesSixDigitsWithTheirDecorations) {
    const ThemeColor teal = ThemeColor::bytes(20, 184, 166, 1);
    EXPECT_EQ(colorFromHex(QStringLiteral(" #14b8a6 ")), teal);
    EXPECT_EQ(colorFromHex(QStringLiteral("14B8A6")), teal);
    EXPECT_EQ(colorFromHex(QStringLiteral("\n#14B8A6\t")), teal);
    EXPECT_EQ(colorFromHex(QStringLiteral("0x1234")), ThemeColor::bytes(0, 18, 52, 1));
    EXPECT_EQ(colorFromHex(QStringLiteral("12G456")), ThemeColor::bytes(0, 0, 18, 1));
    EXPECT_EQ(colorFromHex(QStringLiteral("0xGGGG")), ThemeColor::bytes(0, 0, 0, 1));
    EXPECT_EQ(colorFromHex(QStringLiteral("#  12AB")), ThemeColor::bytes(0, 0x12, 0xAB, 1));
    EXPECT_DOUBLE_EQ(teal.red, 0.0784313725490196);
}

TEST(ThemeColorTest, GivesNothingForAnyOtherText) {
    for (const QString& text :
         {QStringLiteral("#14B8A"), QStringLiteral("#14B8A6F"), QStringLiteral("GGGGGG"),
          QStringLiteral("##14B8A"), QString(), QStringLiteral("#"), QStringLiteral("xyz")}) {
        EXPECT_EQ(colorFromHex(text), ThemeColor()) << qPrintable(text);
    }
}

TEST(ResolvedThemeTest, PresetsChangeTheSurfaceAndLittleElse) {
    const ResolvedTheme lightTeal = resolve(ColorScheme::Light, ThemePreset::Teal);
    EXPECT_EQ(lightTeal.primaryBackground, colorFromHex(QStringLiteral("#EDF6F3")));
    EXPECT_EQ(lightTeal.elevatedBackground, lightTeal.secondaryBackground);
    EXPECT_EQ(lightTeal.accent, colorFromHex(QStringLiteral("#0D9488")));

    const ResolvedTheme ink = resolve(ColorScheme::Dark, ThemePreset::Ink);
    EXPECT_EQ(ink.primaryBackground, colorFromHex(QStringLiteral("#0b0c0d")));
    EXPECT_EQ(ink.secondaryBackground, colorFromHex(QStringLiteral("#161719")));
    EXPECT_EQ(ink.accent, colorFromHex(QStringLiteral("#1FD1BD")));
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

} // namespace
} // namespace quorvantel
