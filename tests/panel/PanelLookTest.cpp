#include "panel/LauncherViewFixture.h"
#include "shapes/ContinuousCorners.h"
#include "support/DrawnTexts.h"
#include "support/ShownPicture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>

namespace quorvantel {
namespace {

using testing::contrast;
using testing::LauncherViewFixture;
using testing::painted;

/// A column of the panel right of all text.
constexpr int freeColumn = 560;

/// The lengths of the runs of one colour down a column, from the top.
QList<int> runs(const QImage& image, int column) {
    QList<int> lengths;
    for (int y = 0; y < image.height(); ++y) {
        if (y == 0 || image.pixel(column, y) != image.pixel(column, y - 1)) {
            lengths << 0;
        }
        ++lengths.last();
    }
    return lengths;
}

class PanelLookTest : public LauncherViewFixture {
protected:
    PanelLookTest() {
        setNumberedApps(20);
        view.setOnSettings([] {});
        setAppearance(ThemeManager::Appearance::Light);
    }

    void setAppearance(ThemeManager::Appearance appearance) {
        look.manager.setAppearance(appearance);
    }

    const ResolvedTheme& theme() const { return look.theme.theme(); }

    /// The panel as it comes onto a screen of this scale.
    QImage picture(double scale = 1) {
        const QSize pixels(qRound(view.width() * scale), qRound(view.height() * scale));
        QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        view.render(&image, {}, {}, QWidget::DrawChildren);
        image.setDevicePixelRatio(1);
        return image;
    }

    QLineEdit& field = *view.findChild<QLineEdit*>();
    ResultListView& list = *view.findChild<ResultListView*>();
    SettingsButton& button = *view.findChild<SettingsButton*>();
};

TEST_F(PanelLookTest, LinesAndEdgesLieOnPixelsAtEveryScale) {
    engine.setQuery(QStringLiteral("app10"));
    view.resize(640, 117);
    // From the top: the border, the search row, the separator, the padding of the list, the row,
    // the padding and the border.
    EXPECT_EQ(runs(picture(1), freeColumn), (QList<int>{1, 55, 1, 6, 48, 5, 1}));
    EXPECT_EQ(runs(picture(1.25), freeColumn), (QList<int>{1, 69, 1, 8, 60, 6, 1}));
    EXPECT_EQ(runs(picture(1.5), freeColumn), (QList<int>{1, 83, 1, 10, 72, 8, 1}));
    EXPECT_EQ(runs(picture(1.75), freeColumn), (QList<int>{2, 96, 2, 10, 84, 9, 2}));
    EXPECT_EQ(runs(picture(2), freeColumn), (QList<int>{2, 110, 2, 12, 96, 10, 2}));
}

TEST_F(PanelLookTest, TextsHaveTheSizesAndColoursOfTheirKind) {
    const auto texts = [this] {
        QStringList found;
        const testing::DrawnTexts picture(view);
        for (const testing::DrawnTexts::Text& drawn : picture.texts()) {
            const bool isSecondary = drawn.color == theme().secondaryText.toQColor();
            EXPECT_TRUE(isSecondary || drawn.color == theme().primaryText.toQColor());
            found << QStringLiteral("%1 %2 %3").arg(drawn.text).arg(drawn.size).arg(isSecondary);
        }
        return found.join(u'\n');
    };
    setApps({QStringLiteral("app")});
    engine.setQuery(QStringLiteral("a"));
    EXPECT_EQ(texts(), QStringLiteral("a 18 0\napp 15 0\nApp 11 1"));
    EXPECT_FALSE(view.findChild<EmptyStateView*>()->isVisible());
    engine.setQuery(QStringLiteral("x"));
    EXPECT_EQ(texts(), QStringLiteral("No results 13 1\nx 18 0"));
    EXPECT_TRUE(view.findChild<EmptyStateView*>()->isVisible());
    EXPECT_EQ(field.x() + 2, 18 + 28 + 8) << "it starts where the names of the rows do";
    EXPECT_EQ(button.x() - field.geometry().right(), 1 + 8) << "the query goes as far as it can";
    EXPECT_EQ(field.height(), 56);
    view.setOnSettings({});
    EXPECT_EQ(field.geometry().right(), 640 - 18 - 1);
}

TEST_F(PanelLookTest, ARowThatIsScrolledAcrossTheEdgeStaysInsideThePanel) {
    engine.setQuery(QStringLiteral("app"));
    list.setSelectedIndex(8);
    for (int step = 0; step < 3; ++step) {
        QWheelEvent turn({200, 200}, list.mapToGlobal(QPointF(200, 200)), {0, -10}, {}, {}, {},
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(&list, &turn);
    }
    ASSERT_EQ(list.scrollOffset(), 30);
    for (const double scale : {1.0, 1.5, 2.0}) {
        list.setSelectedIndex(8);
        const QImage selected = picture(scale);
        list.setSelectedIndex(0);
        const QImage plain = picture(scale);
        const int column = qRound(freeColumn * scale);
        const int bottom = plain.height() - 1;
        EXPECT_NE(selected.pixel(column, bottom - 4), plain.pixel(column, bottom - 4));
        EXPECT_EQ(selected.pixel(column, bottom), plain.pixel(column, bottom));
        EXPECT_EQ(selected.convertToFormat(QImage::Format_Alpha8),
                  plain.convertToFormat(QImage::Format_Alpha8))
            << scale;
    }
}

TEST_F(PanelLookTest, TheSettingsButtonTakesTheHighlightsOfTheThemeAndStaysVisible) {
    for (const auto appearance :
         {ThemeManager::Appearance::Light, ThemeManager::Appearance::Dark}) {
        setAppearance(appearance);
        const ThemeColor background = theme().primaryBackground;
        const auto expectFill = [&](const ThemeColor& fill) {
            const QColor expected = painted(background, fill);
            const QImage image = picture().copy(button.geometry());
            EXPECT_EQ(image.pixelColor(14, 2), expected);
            QImage shape(28, 28, image.format());
            shape.fill(background.toQColor());
            QPainter painter(&shape);
            painter.setRenderHint(QPainter::Antialiasing);
            fillContinuousRoundedRect(painter, shape.rect(), 6, fill.toQColor());
            EXPECT_EQ(image.copy(0, 0, 5, 5), shape.copy(0, 0, 5, 5));
            double most = 1;
            for (int x = 0; x < image.width(); ++x) {
                most = std::max(most, contrast(image.pixelColor(x, 14), expected));
            }
            EXPECT_GE(most, 3);
        };
        expectFill(background);
        button.setAttribute(Qt::WA_UnderMouse);
        expectFill(theme().hoverFill);
        button.setDown(true);
        expectFill(theme().selectionFill);
        button.setDown(false);
        button.setAttribute(Qt::WA_UnderMouse, false);
    }
}

TEST_F(PanelLookTest, GlassIsTranslucentWhereTheDesktopBlursAndWantsTranslucency) {
    look.manager.setPreset(ThemePreset::Glass);
    const auto opacity = [this] { return picture().pixelColor(freeColumn, 28).alpha(); };
    EXPECT_EQ(opacity(), 255);
    view.setBlurAvailable(true);
    EXPECT_LT(opacity(), 255);
    look.system.reduced = true;
    Q_EMIT look.system.changed();
    EXPECT_EQ(opacity(), 255);
}

TEST_F(PanelLookTest, ItsCornersAreCutOffOnlyWhereTheDesktopComposites) {
    const auto corner = [this] { return picture().pixelColor(0, 0).alpha(); };
    EXPECT_EQ(corner(), 0);
    view.setComposited(false);
    EXPECT_EQ(corner(), 255);
}

TEST_F(PanelLookTest, TheScreenShowsEveryChange) {
    const int flashTime = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const std::function<void()> steps[] = {
        [this] { engine.setQuery(QStringLiteral("app")); },
        [this] { QTest::keyClick(&field, Qt::Key_Down); },
        [this] { list.setSelectedIndex(12); },
        [this] { list.scrollToCentre(12); },
        [this] {
            setApps({QStringLiteral("app"), QStringLiteral("apple")});
        },
        [this] { engine.setQuery(QStringLiteral("x")); },
        [this] { engine.setQuery({}); },
        [this] { button.setDown(true); },
        [this] { view.setOnSettings({}); },
        [this] { setAppearance(ThemeManager::Appearance::Dark); },
        [this] { view.setComposited(false); },
        [this] { look.manager.setPreset(ThemePreset::Glass); },
        [this] { view.setBlurAvailable(true); },
    };
    for (std::size_t step = 0; step < std::size(steps); ++step) {
        SCOPED_TRACE(step);
        EXPECT_TRUE(testing::isUpToDate(view));
        const QImage before = testing::shownPicture(view);
        steps[step]();
        EXPECT_TRUE(testing::waitUntil([&] { return testing::shownPicture(view) != before; }));
        EXPECT_TRUE(testing::isUpToDate(view));
    }
    QApplication::setCursorFlashTime(flashTime);
}

TEST_F(PanelLookTest, TheMenuOfTheFieldHasTheColoursOfTheTheme) {
    setAppearance(ThemeManager::Appearance::Dark);
    const QPoint middle = field.rect().center();
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, middle, field.mapToGlobal(middle));
    QApplication::sendEvent(&field, &rightClick);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    const QColor ground = menu->grab().toImage().pixelColor(menu->width() - 4, 4);
    EXPECT_GE(contrast(ground, theme().primaryText.toQColor()), 7);
    menu->close();
}

TEST_F(PanelLookTest, ARightToLeftNameStandsBesideItsIconAndIsCutOffAtItsEndWhichIsLeft) {
    const QString word = QStringLiteral("בדיקה ");
    setApps({word + word, word.repeated(40)});
    engine.setQuery(word);
    ASSERT_EQ(engine.results().front().displayName(), word + word);
    // What a window shows; a painter on a picture takes the direction from the text by itself.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.repaint();
    const QImage image = view.screen()->grabWindow(view.winId()).toImage();
    // Looks at the upper half of the name's line, which no ellipsis reaches.
    const auto hasTallInk = [&](int row, int left, int right) {
        const int top = list.y() + list.rowRect(row).top() + 8;
        for (int y = top; y < top + 12; ++y) {
            for (int x = left; x < right; ++x) {
                if (image.pixel(x, y) != image.pixel(x, top - 6)) {
                    return true;
                }
            }
        }
        return false;
    };
    constexpr int columnLeft = 6 + 12 + 28 + 8;
    constexpr int columnRight = 640 - 6 - 12;
    EXPECT_TRUE(hasTallInk(0, columnLeft, columnLeft + 12));
    EXPECT_FALSE(hasTallInk(0, 300, columnRight));
    EXPECT_FALSE(hasTallInk(1, columnLeft, columnLeft + 8));
    EXPECT_TRUE(hasTallInk(1, columnRight - 12, columnRight));
}

} // namespace
} // namespace quorvantel
