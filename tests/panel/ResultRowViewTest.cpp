#include "panel/ResultRowView.h"

#include "support/DrawnTexts.h"
#include "support/FakeLook.h"

#include <QTest>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using testing::FakeLook;

class ResultRowViewTest : public ::testing::Test {
protected:
    ResultRowViewTest() { row.resize(628, 48); }

    void setTarget(const platform::Image& icon) {
        row.setTarget({u"id"_s, u"Name"_s, {}, icon, LaunchTarget::App{QUrl(), u"id"_s}});
    }

    /// The colour in the middle of the icon's frame, once the icon is decoded.
    QColor iconColor() {
        row.grab();
        QTest::qWait(20);
        return colorAt({12 + 14, 24});
    }

    QColor colorAt(const QPoint& point) {
        QImage image(row.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(look.theme.theme().primaryBackground.toQColor());
        row.render(&image, {}, {}, QWidget::DrawChildren);
        return image.pixelColor(point);
    }

    static constexpr QPoint beyondTheText{600, 24};
    FakeLook look;
    ResultRowView row{look.theme, look.icons};
};

TEST_F(ResultRowViewTest, ShowsAnIconAsItIsAndATemplateAsATintedTile) {
    setTarget(platform::Image::iconTheme(u"editor"_s));
    EXPECT_EQ(iconColor(), QColor(Qt::red));
    const QColor accent = look.theme.theme().accent.toQColor();
    for (const platform::Image& icon :
         {platform::Image::symbol(u"wifi"_s, {}), platform::Image::iconTheme(u"wifi-symbolic"_s),
          platform::Image::iconTheme(u"missing"_s), platform::Image()}) {
        setTarget(icon);
        EXPECT_EQ(iconColor().rgb(), accent.rgb()) << icon.name.toStdString();
    }
    const QRgb tile = colorAt({12 + 14, 24 - 12}).rgb();
    platform::Image substituted = platform::Image::iconTheme(u"missing"_s);
    substituted.substitute = u"missing"_s;
    setTarget(substituted);
    EXPECT_EQ(iconColor().rgb(), tile) << "its own substitute, which is missing as well";
}

TEST_F(ResultRowViewTest, TheTileAroundAGlyphStandsOutFromEveryRow) {
    setTarget({});
    for (const auto appearance :
         {ThemeManager::Appearance::Light, ThemeManager::Appearance::Dark}) {
        look.manager.setAppearance(appearance);
        for (const ThemePreset preset : {ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass}) {
            look.manager.setPreset(preset);
            for (const auto& [isSelected, isHovered] :
                 {std::pair(false, false), std::pair(false, true), std::pair(true, false)}) {
                row.setSelected(isSelected);
                row.setHovered(isHovered);
                const QColor tile = colorAt({12 + 14, 24 - 12});
                EXPECT_GE(testing::contrast(tile, colorAt(beyondTheText)), 1.08)
                    << static_cast<int>(preset) << isSelected << isHovered;
            }
        }
    }
}

TEST_F(ResultRowViewTest, SelectionGoesBeforeHover) {
    look.manager.setAppearance(ThemeManager::Appearance::Dark);
    const ResolvedTheme& theme = look.theme.theme();
    const auto on = [&theme](const ThemeColor& fill) {
        return testing::painted(theme.primaryBackground, fill);
    };
    setTarget({});
    EXPECT_EQ(colorAt(beyondTheText), on({}));
    row.setHovered(true);
    EXPECT_EQ(colorAt(beyondTheText), on(theme.hoverFill));
    row.setSelected(true);
    EXPECT_EQ(colorAt(beyondTheText), on(theme.selectionFill));

    // Users who asked for more contrast see an outline around either.
    const auto outline = [this] { return colorAt({320, 0}); };
    EXPECT_EQ(outline(), on(theme.selectionFill));
    look.system.contrasts = true;
    Q_EMIT look.system.changed();
    EXPECT_EQ(outline(), theme.accent.toQColor());
    row.setSelected(false);
    EXPECT_GE(testing::contrast(outline(), on({})), 3);
    look.system.contrasts = false;
    Q_EMIT look.system.changed();
    row.setSelected(true);

    // Another target in the same row is not hovered any more.
    row.setSelected(false);
    row.setTarget({u"other"_s, u"Other"_s, {}, {}, LaunchTarget::SettingsPane{}});
    EXPECT_FALSE(row.isHovered());
    EXPECT_EQ(ResultRowView::kindText(*row.target()), u"System Setting"_s);
}

TEST_F(ResultRowViewTest, OnlyATopPickHasARingAndWhenSelectedTheReturnHint) {
    const auto hasHint = [this] { return testing::DrawnTexts(row).texts()[0].text == u"↩"_s; };
    const auto hasRing = [this] { return colorAt({300, 0}) != colorAt({300, 20}); };
    setTarget({});
    for (const bool isTopPick : {false, true}) {
        row.setTopPick(isTopPick);
        for (const bool isSelected : {false, true}) {
            row.setSelected(isSelected);
            EXPECT_EQ(hasHint(), isTopPick && isSelected);
            EXPECT_EQ(hasRing(), isTopPick);
        }
    }
}

} // namespace
} // namespace quorvantel
