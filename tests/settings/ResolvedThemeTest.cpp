#include "settings/ResolvedTheme.h"

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

} // namespace
} // namespace quorvantel
