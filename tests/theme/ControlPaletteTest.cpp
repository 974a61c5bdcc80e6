#include "theme/ControlPalette.h"

#include "theme/Contrast.h"
#include "theme/ControlColors.h"

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
    const ThemeColor grey = colorFromHex(QStringLiteral("#949494"));
    EXPECT_EQ(legible(grey, {white}, contrastRatio(grey, white)), grey) << "it is just enough";
    EXPECT_EQ(mostLegible({white, black}, colorFromHex(QStringLiteral("#14B8A6"))), black);
    EXPECT_EQ(mostLegible({white, black}, colorFromHex(QStringLiteral("#0B5F58"))), white);
}

class ControlPaletteTest : public ::testing::TestWithParam<std::tuple<ColorScheme, ThemePreset>> {
protected:
    ResolvedTheme theme = resolve(std::get<0>(GetParam()), std::get<1>(GetParam()));
};

INSTANTIATE_TEST_SUITE_P(
    EveryTheme, ControlPaletteTest,
    ::testing::Combine(::testing::Values(ColorScheme::Light, ColorScheme::Dark),
                       ::testing::Values(ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass)));

TEST_P(ControlPaletteTest, TextOfStandardControlsIsLegible) {
    const QPalette palette = controlPalette(theme);
    const auto contrast = [&palette](QPalette::ColorRole text, QPalette::ColorRole background) {
        const auto opaque = [&palette](QPalette::ColorRole role) {
            const QColor color = palette.color(QPalette::Active, role);
            EXPECT_EQ(color.alpha(), 255) << role;
            return ThemeColor::bytes(color.red(), color.green(), color.blue(), 1);
        };
        return contrastRatio(opaque(text), opaque(background));
    };
    EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
    EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 7);
    EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 7);
    EXPECT_GE(contrast(QPalette::ButtonText, QPalette::Button), 7);
    EXPECT_GE(contrast(QPalette::ToolTipText, QPalette::ToolTipBase), 7);
}

TEST_P(ControlPaletteTest, OwnControlsAreLegibleWhereverTheyLie) {
    const ControlColors colors = controlColors(theme);
    for (const ThemeColor& ground : {theme.primaryBackground, theme.secondaryBackground}) {
        for (const ThemeColor& text :
             {colors.accent, colors.secondary, colors.warning, theme.primaryText}) {
            EXPECT_GE(contrastRatio(text, ground), 4.5);
            EXPECT_GE(contrastRatio(text, over(theme.selectionFill, ground)), 4.5);
        }
    }
    EXPECT_GE(contrastRatio(colors.outline, theme.primaryBackground), 3);
    EXPECT_GE(contrastRatio(colors.onAccent, theme.accent), 3);
    // A field that records is tinted with the accent, any other with the text's colour.
    for (ThemeColor fill : {theme.accent, theme.primaryText}) {
        fill.opacity = 0.1;
        const ThemeColor field = over(fill, theme.primaryBackground);
        for (const ThemeColor& text : {colors.secondary, theme.primaryText}) {
            EXPECT_GE(contrastRatio(text, field), 4.5);
        }
        for (const ThemeColor& mark : {colors.accent, colors.warning}) {
            EXPECT_GE(contrastRatio(mark, field), 3);
        }
    }
}

} // namespace
} // namespace quorvantel
