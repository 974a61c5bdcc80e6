#include "settings/SettingsWindowFixture.h"
#include "shapes/ContinuousCorners.h"
#include "support/DrawnTexts.h"
#include "support/ShownPicture.h"
#include "support/WithoutMotion.h"
#include "theme/ControlColors.h"
#include "theme/InterfaceFont.h"

#include <QEnterEvent>
#include <QSet>
#include <QSplitter>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using testing::isUpToDate;

class SettingsLookTest : public testing::SettingsWindowFixture {
protected:
    SettingsLookTest() {
        // With every control that there is.
        hotKeys.answer = platform::HotKeyLeftToUser{u"Put this there:"_s, u"bind x"_s};
        hotKey.registerHotKey(settings.hotKeyBinding(), [] {});
    }

    /// What has the focus: of a list its current row.
    static QRect focusFrame(const QWidget& control, const QWidget& window) {
        if (const auto* const list = qobject_cast<const SettingsSidebar*>(&control)) {
            const QRect row = list->visualRect(list->currentIndex()).adjusted(0, 0, 0, -2);
            return row.translated(list->viewport()->mapTo(&window, QPoint()));
        }
        return {control.mapTo(&window, QPoint()), control.size()};
    }

    /// The columns of a frame's middle line in which two pictures differ.
    static std::vector<int> differences(const QImage& one, const QImage& other, QRect frame) {
        std::vector<int> found;
        for (int x = frame.left(); x <= frame.right(); ++x) {
            if (one.pixel(x, frame.center().y()) != other.pixel(x, frame.center().y())) {
                found.push_back(x - frame.left());
            }
        }
        return found;
    }
};

TEST_F(SettingsLookTest, WhatHasTheFocusIsMarkedWhileTheKeyboardMovesIt) {
    const testing::WithoutMotion still;
    SettingsView& window = show();
    for (const auto appearance :
         {ThemeManager::Appearance::Light, ThemeManager::Appearance::Dark}) {
        look.manager.setAppearance(appearance);
        QSet<QByteArray> kinds;
        for (const SettingsSection section : allSettingsSections) {
            window.select(section);
            QCoreApplication::processEvents();
            for (auto* const control : window.findChildren<QWidget*>()) {
                if (!control->isVisible() || (control->focusPolicy() & Qt::ClickFocus) == 0) {
                    continue;
                }
                const QByteArray kind = control->metaObject()->className();
                SCOPED_TRACE(kind.toStdString());
                control->setFocus();
                window.setAttribute(Qt::WA_KeyboardFocusChange, false);
                const QImage plain = window.grab().toImage();
                window.setAttribute(Qt::WA_KeyboardFocusChange);
                const QImage marked = window.grab().toImage();
                const QRect frame = focusFrame(*control, window);
                const std::vector<int> columns = differences(plain, marked, frame);
                kinds << kind;
                if (qobject_cast<PlainButton*>(control)) {
                    EXPECT_GT(columns.size(), 0U) << "it is filled";
                    continue;
                }
                const int right = frame.width() - 1;
                EXPECT_EQ(columns, (std::vector{0, 1, right - 1, right})) << "a ring of two points";
                const auto color = [&](int column) {
                    return marked.pixelColor(frame.left() + column, frame.center().y());
                };
                EXPECT_GE(testing::contrast(color(1), color(2)), 3);
                QSet<QRgb> shades;
                for (int place = 0; place < 64; ++place) {
                    shades << marked.pixel(frame.topLeft() + QPoint(place % 8, place / 8));
                }
                EXPECT_GT(shades.size(), 6) << "its corners are jagged";
            }
        }
        EXPECT_EQ(kinds.size(), 6) << kinds.values().join(' ').toStdString();
    }
}

TEST_F(SettingsLookTest, CornersAreAsRoundAsTheirKind) {
    SettingsView& window = show();
    const ResolvedTheme& theme = look.theme.theme();
    const ThemeColor page = theme.primaryBackground;
    const auto expect = [&](const QRect& frame, double radius, const ThemeColor& ground,
                            const ThemeColor& fill, bool isField) {
        QImage shape(frame.size(), QImage::Format_RGB32);
        shape.fill(ground.toQColor());
        QPainter painter(&shape);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRoundedRect(shape.rect(), radius), fill.toQColor());
        if (isField) {
            painter.setPen(QPen(controlColors(theme).outline.toQColor(), 1));
            painter.drawPath(
                continuousRoundedRect(QRectF(shape.rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius));
        }
        const QImage drawn = window.grab(QRect(frame.topLeft(), QSize(6, 6))).toImage();
        EXPECT_EQ(drawn.convertToFormat(shape.format()), shape.copy(0, 0, 6, 6)) << radius;
    };
    const auto frameOf = [&window](const QWidget& widget) {
        return QRect(widget.mapTo(&window, QPoint()), widget.size());
    };
    expect(focusFrame(*window.findChild<SettingsSidebar*>(), window), 8, theme.secondaryBackground,
           theme.selectionFill, false);
    ThemeColor tint = theme.primaryText;
    tint.opacity = 0.06;
    expect(frameOf(recorder()), 7, page, tint, true);
    expect(frameOf(*window.findChild<CopyableText*>()->findChild<QLabel*>()), 7, page, tint, true);
    PlainButton& copy = *button<PlainButton>(u"Copy"_s);
    copy.setDown(true);
    expect(frameOf(copy), 4, page, theme.selectionFill, false);
}

TEST_F(SettingsLookTest, TheScreenShowsEveryChange) {
    SettingsView& window = show();
    EXPECT_TRUE(isUpToDate(window));
    const auto help = [this] { return button<FCPToolbarButtonStyle>(u"Quorvantel Help"_s); };
    const auto segment = [this](int index) {
        return controller.window()->findChild<SegmentedPill*>()->findChildren<PillSegment*>().at(
            index);
    };
    const std::pair<SettingsSection, std::vector<std::function<void()>>> changes[] = {
        {SettingsSection::Hotkey,
         {
             [this] {
                 QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
                 QCoreApplication::sendEvent(&recorder(), &enter);
             },
             [this] {
                 QEvent leave(QEvent::Leave);
                 QCoreApplication::sendEvent(&recorder(), &leave);
             },
             [this] {
                 settings.setHotKeyBinding({40, 0x1000});
             },
             [this] { recorder().click(); },
             [this] { EXPECT_TRUE(recorder().state().isRecording()) << "its light pulses"; },
             [this] {
                 keyboard.press({40, 0});
             },
             [this] { hotKeys.turn(platform::HotKeyPending{}); },
             [this] { look.manager.setPreset(ThemePreset::Teal); },
             [this] { look.manager.setAppearance(ThemeManager::Appearance::Dark); },
         }},
        {SettingsSection::General,
         {
             [&] { QTest::mousePress(help(), Qt::LeftButton); },
             [&] { QTest::mouseRelease(help(), Qt::LeftButton); },
             [&] { help()->setOn(true); },
             [this] { look.manager.setPreset(ThemePreset::Graphite); },
         }},
        {SettingsSection::Appearance,
         {
             [&] { QTest::mouseClick(segment(0), Qt::LeftButton); },
             [&] { QTest::keyClick(segment(0), Qt::Key_Right); },
         }},
    };
    for (const auto& [section, steps] : changes) {
        window.select(section);
        for (std::size_t step = 0; step < steps.size(); ++step) {
            SCOPED_TRACE(rawValue(section).toStdString() + " " + std::to_string(step));
            EXPECT_TRUE(recorder().state().isRecording() || isUpToDate(window));
            const QImage before = testing::shownPicture(window);
            steps[step]();
            EXPECT_TRUE(
                testing::waitUntil([&] { return testing::shownPicture(window) != before; }));
            EXPECT_TRUE(recorder().state().isRecording() || isUpToDate(window));
        }
    }
}

TEST_F(SettingsLookTest, TextsHaveTheSizesAndColoursOfTheirKind) {
    hotKey.registerHotKey({49, 0}, [] {});
    SettingsView& window = show();
    const ThemeColor primary = look.theme.theme().primaryText;
    const ControlColors colors = controlColors(look.theme.theme());
    QSet<SettingsText::Style> styles;
    for (const SettingsSection section : allSettingsSections) {
        window.select(section);
        QCoreApplication::processEvents();
        const auto expect = [](QWidget& widget, int size, int weight, const ThemeColor& color) {
            const testing::DrawnTexts drawn(widget);
            ASSERT_GT(drawn.texts().size(), 0U);
            for (const auto& text : drawn.texts()) {
                EXPECT_EQ(text.size, size) << text.text.toStdString();
                EXPECT_EQ(text.weight, weight) << text.text.toStdString();
                EXPECT_EQ(text.color, color.toQColor()) << text.text.toStdString();
            }
        };
        for (auto* const text : window.findChildren<SettingsText*>()) {
            if (text->isVisible()) {
                const SettingsText::Style style = text->textStyle();
                styles << style;
                const bool isHeading = style == SettingsText::Style::Heading;
                const bool isHint = style == SettingsText::Style::Hint;
                expect(*text,
                       isHeading ? 15
                       : isHint  ? 11
                                 : 13,
                       isHeading ? QFont::Medium : QFont::Normal,
                       isHint                                  ? look.theme.theme().secondaryText
                       : style == SettingsText::Style::Warning ? colors.warning
                                                               : primary);
            }
        }
        for (auto* const plain : window.findChildren<PlainButton*>()) {
            if (plain->isVisible()) {
                expect(*plain, 13, QFont::Medium, colors.accent);
                const QFontMetrics metrics(interfaceFont(13, QFont::Medium));
                EXPECT_EQ(plain->size(),
                          QSize(metrics.horizontalAdvance(plain->text()), metrics.height() + 6));
            }
        }
    }
    EXPECT_EQ(styles.size(), 4);
    auto& help = *button<FCPToolbarButtonStyle>(u"Quorvantel Help"_s);
    const QFontMetrics metrics(interfaceFont(13));
    const testing::DrawnTexts drawn(help);
    EXPECT_EQ(drawn.texts().at(0).size, 13);
    EXPECT_EQ(drawn.texts()[0].start.y(),
              (help.height() - metrics.height()) / 2 + metrics.ascent());
    EXPECT_EQ(help.size(), QSize(metrics.horizontalAdvance(help.text()) + 15 + 6 + 16,
                                 std::max(metrics.height(), 15) + 12));
}

TEST_F(SettingsLookTest, HasItsMeasures) {
    SettingsView& window = show();
    EXPECT_EQ(window.size(), QSize(645, 360));
    const auto& sidebar = *window.findChild<SettingsSidebar*>();
    EXPECT_EQ(sidebar.width(), 184);
    EXPECT_EQ(sidebar.viewport()->geometry(), QRect(10, 10, 164, 340));
    auto& columns = *window.findChild<QSplitter*>();
    for (const auto& [wanted, width] : {std::pair(1, 168), {600, 220}, {184, 184}}) {
        columns.setSizes({wanted, 645 - wanted});
        EXPECT_EQ(sidebar.width(), width);
    }
    window.select(SettingsSection::Appearance);
    QCoreApplication::processEvents();
    QRect above;
    for (const auto* const pill : window.findChildren<SegmentedPill*>()) {
        const QRect frame(pill->mapTo(&window, QPoint()), pill->size());
        EXPECT_EQ(frame.left(), 185 + 32);
        EXPECT_EQ(frame.width(), 320);
        const auto texts = pill->parentWidget()->findChildren<SettingsText*>();
        const auto top = [&](int index) { return texts[index]->mapTo(&window, QPoint()).y(); };
        EXPECT_EQ(top(0), above.isNull() ? 32 : above.bottom() + 1 + 24);
        EXPECT_EQ(frame.top(), top(0) + texts[0]->height() + 10);
        EXPECT_EQ(top(1), frame.bottom() + 1 + 10);
        above = {texts[1]->mapTo(&window, QPoint()), texts[1]->size()};
    }
}

} // namespace
} // namespace quorvantel
