#include "settings/SettingsWindowFixture.h"
#include "support/DrawnTexts.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using SettingsWindowTest = testing::SettingsWindowFixture;

TEST_F(SettingsWindowTest, EveryRequestShowsTheSameWindowCentredAndInFront) {
    EXPECT_EQ(controller.window(), nullptr);
    look.manager.setAppearance(ThemeManager::Appearance::Dark);
    SettingsView& window = show();
    EXPECT_EQ(frame.appearance, platform::WindowFrame::Appearance::Dark);
    EXPECT_EQ(window.windowTitle(), u"Quorvantel Settings"_s);
    EXPECT_EQ(window.shownSection(), SettingsSection::Hotkey);

    window.select(SettingsSection::Advanced);
    window.move(0, 0);
    activator.margins = {4, 30, 8, 6};
    EXPECT_EQ(&show(), &window);
    const QPoint centre = QRect(0, 0, 1440, 900).center();
    const QRect withFrame = window.geometry().marginsAdded(activator.margins);
    EXPECT_LE((withFrame.center() - centre).manhattanLength(), 2);

    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(&show(), &window);
    EXPECT_EQ(window.shownSection(), SettingsSection::Advanced);
    EXPECT_EQ(activator.activations, 3);
}

TEST_F(SettingsWindowTest, TheSidebarIsAListThatTheArrowKeysMoveIn) {
    SettingsView& window = show();
    auto* const sidebar = window.findChild<SettingsSidebar*>();
    EXPECT_GE(sidebar->width(), 168);
    EXPECT_LE(sidebar->width(), 220);
    QTest::keyClick(sidebar, Qt::Key_Down);
    EXPECT_EQ(window.shownSection(), SettingsSection::Advanced);
    QTest::keyClick(sidebar, Qt::Key_Home);
    EXPECT_EQ(window.shownSection(), SettingsSection::General);
    EXPECT_TRUE(shows(u"No additional settings yet."_s));

    sidebar->clearSelection();
    EXPECT_EQ(window.shownSection(), SettingsSection::Hotkey);
    EXPECT_TRUE(shows(u"Summon hotkey"_s));

    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(sidebar);
    ASSERT_EQ(spoken->childCount(), 4);
    EXPECT_EQ(spoken->child(3)->role(), QAccessible::ListItem);
    EXPECT_EQ(spoken->child(3)->text(QAccessible::Name), u"Appearance"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
}

TEST_F(SettingsWindowTest, SymbolsStandCentredBeforeTheirTexts) {
    SettingsView& window = show();
    window.select(SettingsSection::General);
    const auto& sidebar = *window.findChild<SettingsSidebar*>();
    const testing::DrawnTexts rows(*sidebar.viewport());
    for (std::size_t row = 0; row < 4; ++row) {
        const QModelIndex index = sidebar.model()->index(static_cast<int>(row), 0);
        const QPoint corner = sidebar.visualRect(index).topLeft();
        EXPECT_EQ(rows.pictures().at(row), QRectF(corner + QPoint(8, 8), QSizeF(16, 16)));
        EXPECT_EQ(rows.texts().at(row).start.x(), corner.x() + 32);
        EXPECT_EQ(rows.texts()[row].size, 13);
    }
    const QImage list = sidebar.viewport()->grab().toImage();
    EXPECT_NE(list.pixelColor(list.width() / 2, 4), list.pixelColor(list.width() / 2, 4 + 34));
    auto* const help = button<FCPToolbarButtonStyle>(u"Quorvantel Help"_s);
    const auto symbol = [help] { return testing::DrawnTexts(*help).pictures().at(0); };
    const auto text = [help] { return testing::DrawnTexts(*help).texts().at(0); };
    EXPECT_NEAR(symbol().center().y(), help->height() / 2.0, 0.5);
    EXPECT_EQ(text().start.x(), 29);
    QTest::mousePress(help, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return symbol().left() > 10; })) << "it does not shrink";
    QTest::mouseRelease(help, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return symbol().left() == 8; })) << "nor grow again";
    help->setOn(true);
    EXPECT_NE(text().color, QColor(Qt::white)) << "it jumps";
    EXPECT_TRUE(QTest::qWaitFor([&] { return text().color == QColor(Qt::white); }));
}

TEST_F(SettingsWindowTest, TheHelpButtonAndF1AskForHelp) {
    SettingsView& window = show();
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(helpRequests, 1);
    window.select(SettingsSection::General);
    auto* const help = button<FCPToolbarButtonStyle>(u"Quorvantel Help"_s);
    QTest::mouseClick(help, Qt::LeftButton);
    EXPECT_EQ(helpRequests, 2);
    help->setFocus();
    QTest::keyClick(help, Qt::Key_Return);
    EXPECT_EQ(helpRequests, 3);
}

TEST_F(SettingsWindowTest, ResetToDefaultStoresTheDefaultHotKeyAndARefusalIsForgotten) {
    settings.setHotKeyBinding({40, 0x0300});
    show();
    const auto refuse = [this] {
        QTest::mouseClick(&recorder(), Qt::LeftButton);
        keyboard.press({40, 0});
        EXPECT_NE(recorder().state(), RecorderState::idle());
    };
    for (int round = 0; round < 2; ++round) {
        refuse();
        QTest::mouseClick(resetButton(), Qt::LeftButton);
        EXPECT_EQ(settings.hotKeyBinding(), HotKeyBinding::defaultBinding());
        EXPECT_EQ(recorder().state(), RecorderState::idle());
    }
    refuse();
    controller.window()->close();
    show();
    EXPECT_EQ(recorder().state(), RecorderState::idle());
    EXPECT_EQ(retries, 0);
}

TEST_F(SettingsWindowTest, AHotKeyThatDoesNotWorkIsExplainedBesideTheOneThatDoes) {
    const QString refusal = u"RegisterEventHotKey failed with OSStatus 10."_s;
    show();
    const auto expectExplained = [this](const QString& text) {
        const auto texts = controller.window()->findChildren<SettingsText*>();
        const auto warning =
            std::ranges::find(texts, SettingsText::Style::Warning, &SettingsText::textStyle);
        EXPECT_EQ((*warning)->isVisible() ? (*warning)->text() : QString(), text);
        EXPECT_EQ(recorder().accessibleDescription().section(u'\n', 1), text);
    };
    hotKey.registerHotKey(settings.hotKeyBinding(), [] {});
    expectExplained({});
    hotKeys.refused = {u"4096+40"_s};
    hotKey.registerHotKey(
        {40, 0x1000}, [] {}, HotKeyBinding::defaultBinding());
    expectExplained(refusal + u"\n⌥⌘Space summons Quorvantel instead."_s);
    hotKeys.turn(platform::HotKeyUnavailable{7, u"Lost."_s});
    expectExplained(refusal + u"\nNo hotkey summons Quorvantel now."_s);
    hotKey.registerHotKey(settings.hotKeyBinding(), [] {});
    hotKeys.turn(platform::HotKeyUnavailable{7, u"Lost."_s});
    expectExplained(u"Lost.\nNo hotkey summons Quorvantel now."_s);
}

TEST_F(SettingsWindowTest, WhatTheSystemMadeOfTheHotKeyIsSaidAndCanBeCopied) {
    auto& window = show();
    const auto& lines = *window.findChild<CopyableText*>();
    hotKeys.answer = platform::HotKeyPending{};
    hotKey.registerHotKey(settings.hotKeyBinding(), [] {});
    EXPECT_TRUE(shows(u"Waiting for your desktop to answer…"_s));
    hotKeys.turn(platform::HotKeyRegistered{u"Meta+Space"_s});
    EXPECT_TRUE(shows(u"Press Meta+Space to summon Quorvantel."_s));
    EXPECT_EQ(recorder().accessibleDescription(),
              u"⌥⌘Space\nPress Meta+Space to summon Quorvantel."_s);
    EXPECT_FALSE(lines.isVisible());

    hotKeys.turn(platform::HotKeyLeftToUser{u"Put <b>this</b> there:"_s, u"bind x"_s});
    EXPECT_TRUE(shows(u"Put <b>this</b> there:"_s));
    EXPECT_TRUE(lines.isVisible());
    look.manager.setAppearance(ThemeManager::Appearance::Dark);
    const testing::DrawnTexts drawn(window);
    QString primary;
    for (const auto& text : drawn.texts()) {
        primary += text.color == look.theme.theme().primaryText.toQColor() ? text.text : QString();
    }
    EXPECT_TRUE(primary.contains(u"<b>this</b>"_s)) << "the text is the desktop's, and no markup";
    EXPECT_TRUE(primary.contains(u"bind x"_s));
    auto* const copy = button<PlainButton>(u"Copy"_s);
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"bind x"_s);
    EXPECT_EQ(copy->text(), u"Copied"_s);
    hotKeys.turn(platform::HotKeyRegistered{});
    EXPECT_FALSE(lines.isVisible());
    EXPECT_EQ(copy->text(), u"Copy"_s);
}

TEST_F(SettingsWindowTest, ChoosingTheSameHotKeyTriesAgainWhileItDoesNotWork) {
    show();
    const auto choose = [this] {
        QTest::mouseClick(&recorder(), Qt::LeftButton);
        keyboard.press({49, 0x0900});
        QTest::mouseClick(resetButton(), Qt::LeftButton);
    };
    choose();
    EXPECT_EQ(retries, 0);
    hotKeys.refused = {u"2304+49"_s};
    hotKey.registerHotKey(settings.hotKeyBinding(), [] {});
    choose();
    EXPECT_EQ(retries, 2);
}

TEST_F(SettingsWindowTest, EveryTextHasItsRoomInTheSmallestWindowAndHeadingsStandStill) {
    hotKeys.answer = platform::HotKeyLeftToUser{QString(u"word "_s).repeated(30),
                                                QString(u"--option "_s).repeated(20)};
    hotKey.registerHotKey(settings.hotKeyBinding(), [] {});
    hotKey.registerHotKey({49, 0}, [] {});
    SettingsView& window = show();
    for (const QSize size : {QSize(0, 0), QSize(645, 360), QSize(2000, 1000)}) {
        window.resize(size);
        for (const SettingsSection section : allSettingsSections) {
            window.select(section);
            QCoreApplication::processEvents();
            std::vector<QPoint> corners;
            for (const auto* const text : window.findChildren<SettingsText*>()) {
                if (text->isVisible()) {
                    EXPECT_EQ(text->height(), text->heightForWidth(text->width()))
                        << text->text().toStdString();
                    corners.push_back(text->mapTo(&window, QPoint()));
                }
            }
            EXPECT_EQ(corners.front().y(), 32) << rawValue(section).toStdString();
            for (const auto* const pill : window.findChildren<SegmentedPill*>()) {
                EXPECT_GE(pill->height(), pill->isVisible() ? pill->sizeHint().height() : 0);
            }
        }
    }
}

TEST_F(SettingsWindowTest, TheResetAsksFirstWithTheSafeAnswerAtHand) {
    learned.learn(u"ch"_s, u"org.example.Chess"_s, 0);
    const auto stored = [this] { return LearnedAbbreviationStore(directory.path()).table(); };
    const std::function<void()> refusals[] = {
        [this] { QTest::mouseClick(button<QPushButton>(u"Cancel"_s), Qt::LeftButton); },
        [this] { QTest::keyClick(confirmation(), Qt::Key_Escape); },
        [this] { QTest::keyClick(confirmation(), Qt::Key_Return); },
    };
    for (const auto& refuse : refusals) {
        askForReset();
        refuse();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(confirmation(), nullptr);
        EXPECT_EQ(stored(), learned.table());
        EXPECT_FALSE(learned.table().isEmpty());
    }
    askForReset();
    look.manager.setAppearance(ThemeManager::Appearance::Dark);
    EXPECT_EQ(confirmation()->palette().color(QPalette::Window), QColor(0x16, 0x17, 0x19));
    EXPECT_EQ(confirmation()->text(), u"Reset learned abbreviations?"_s);
    EXPECT_EQ(confirmation()->informativeText(),
              u"This cannot be undone. All learned search→result associations will "
              u"be cleared."_s);
    QTest::mouseClick(button<QPushButton>(u"Reset"_s), Qt::LeftButton);
    EXPECT_TRUE(learned.table().isEmpty());
    EXPECT_TRUE(stored().isEmpty());
}

class AppearancePaneTest : public SettingsWindowTest {
protected:
    AppearancePaneTest() { show().select(SettingsSection::Appearance); }

    SegmentedPill* pill(const QString& name) {
        const auto pills = controller.window()->findChildren<SegmentedPill*>();
        return *std::ranges::find(pills, name, &QWidget::accessibleName);
    }

    SegmentedPill* appearance() { return pill(u"Appearance"_s); }
    SegmentedPill* surface() { return pill(u"Surface"_s); }

    void click(SegmentedPill* control, int segment) {
        QTest::mouseClick(control->findChildren<PillSegment*>().at(segment), Qt::LeftButton);
    }

    /// The colour in the lower right corner of the window.
    QColor background() {
        const QImage image = controller.window()->grab().toImage();
        return image.pixelColor(image.width() - 2, image.height() - 2);
    }
};

TEST_F(AppearancePaneTest, ChoicesRecolourTheWindowAtOnce) {
    EXPECT_EQ(appearance()->selection(), 2);
    EXPECT_EQ(background(), QColor(0xF4, 0xF5, 0xF7));
    click(appearance(), 1);
    EXPECT_EQ(background(), QColor(0x16, 0x17, 0x19));
    EXPECT_EQ(frame.appearance, platform::WindowFrame::Appearance::Dark);
    click(surface(), 1);
    EXPECT_EQ(background(), QColor(0x0F, 0x1C, 0x1A));
    click(appearance(), 0);
    EXPECT_EQ(background(), QColor(0xED, 0xF6, 0xF3));
    click(appearance(), 2);
    EXPECT_EQ(look.manager.appearance(), ThemeManager::Appearance::Auto);
    EXPECT_EQ(frame.appearance, platform::WindowFrame::Appearance::System);
}

TEST_F(AppearancePaneTest, ARetiredPresetSelectsNoSegment) {
    look.manager.setPreset(ThemePreset::Glass);
    EXPECT_EQ(surface()->selection(), std::nullopt);
    click(surface(), 0);
    EXPECT_EQ(look.manager.preset(), ThemePreset::Graphite);
}

} // namespace
} // namespace quorvantel
