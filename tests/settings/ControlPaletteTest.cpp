#include "settings/ControlPalette.h"

#include "settings/Contrast.h"
#include "settings/ControlColors.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

TEST(ContrastTest, IsTheRatioOfTheGuidelines) {
    const ThemeColor black = ThemeColor::black(1);
    const ThemeColor white = ThemeColor::white(1);
    EXPECT_DOUBLE_EQ(contrastRatio(black, white), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(white, black), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(white, white), 1);
    // The lightest grey on white that small text may have.
    EXPECT_NEAR(contrastRatio(colorFromHex(QStringLiteral("#767676")), white), 4.54, 0.005);
    EXPECT_EQ(mostLegible({white, black}, colorFromHex(QStringLiteral("#14B8A6"))), black);
    EXPECT_EQ(mostLegible({white, black}, colorFromHex(QStringLiteral("#0B5F58"))), white);
}

TEST(ControlPaletteTest, TextIsLegibleInEveryTheme) {
    const auto contrast = [](const QPalette& palette, QPalette::ColorRole text,
                             QPalette::ColorRole background) {
        const auto opaque = [&palette](QPalette::ColorRole role) {
            const QColor color = palette.color(QPalette::Active, role);
            EXPECT_EQ(color.alpha(), 255) << role;
            return ThemeColor::bytes(color.red(), color.green(), color.blue(), 1);
        };
        return contrastRatio(opaque(text), opaque(background));
    };
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        for (const ThemePreset preset : {ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass}) {
            const QPalette palette = controlPalette(resolve(scheme, preset));
            EXPECT_GE(contrast(palette, QPalette::HighlightedText, QPalette::Highlight), 4.5);
            EXPECT_GE(contrast(palette, QPalette::WindowText, QPalette::Window), 7);
            EXPECT_GE(contrast(palette, QPalette::Text, QPalette::Base), 7);
            EXPECT_GE(contrast(palette, QPalette::ButtonText, QPalette::Button), 7);
            EXPECT_GE(contrast(palette, QPalette::ToolTipText, QPalette::ToolTipBase), 7);
        }
    }
}

TEST(ControlColorsTest, AreLegibleWhereverControlsLieInEveryTheme) {
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        for (const ThemePreset preset : {ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass}) {
            const ResolvedTheme theme = resolve(scheme, preset);
            const ControlColors colors = controlColors(theme);
            for (const ThemeColor& ground : {theme.primaryBackground, theme.secondaryBackground}) {
                const ThemeColor selected = over(theme.selectionFill, ground);
                for (const ThemeColor& text :
                     {colors.accent, colors.secondary, colors.warning, theme.primaryText}) {
                    EXPECT_GE(contrastRatio(text, ground), 4.5);
                    EXPECT_GE(contrastRatio(text, selected), 4.5);
                }
            }
            EXPECT_GE(contrastRatio(colors.outline, theme.primaryBackground), 3);
            EXPECT_GE(contrastRatio(colors.onAccent, theme.accent), 3);
            // A field that records is tinted with the accent, any other with the text's colour.
            for (ThemeColor fill : {theme.accent, theme.primaryText}) {
                fill.opacity = 0.1;
                const ThemeColor field = over(fill, theme.primaryBackground);
                EXPECT_GE(contrastRatio(colors.secondary, field), 4.5);
                EXPECT_GE(contrastRatio(colors.warning, field), 3);
                EXPECT_GE(contrastRatio(colors.accent, field), 3);
                EXPECT_GE(contrastRatio(theme.primaryText, field), 4.5);
            }
        }
    }
}

} // namespace
} // namespace quorvantel
