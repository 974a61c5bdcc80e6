#include "shell/AppDelegate.h"

#include "panel/SearchField.h"
#include "settings/HotKeyRecorderView.h"
#include "shell/FakePlatform.h"
#include "support/LogLines.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvantel {
namespace {

using testing::FakePlatform;

class AppDelegateTest : public ::testing::Test {
protected:
    AppDelegateTest() {
        platform.fakeWorkspace.onOpen = [this] {
            EXPECT_FALSE(platform.host.hasKeyboard) << "no key goes anywhere until it is open";
            EXPECT_TRUE(delegate.isPanelVisible());
        };
    }

    void start() {
        delegate.applicationDidFinishLaunching();
        QCoreApplication::processEvents();
    }

    void pressHotKey() {
        platform.hotKeys.handler(HotKeyService::identity);
        QCoreApplication::processEvents();
    }

    /// Shows the panel, searches, and opens the result at `row`.
    QString launchResult(const QString& query, std::size_t row) {
        if (!delegate.isPanelVisible()) {
            pressHotKey();
        }
        delegate.engine().setQuery(query);
        const LaunchTarget target = delegate.engine().results()[row];
        delegate.launch(target);
        return target.id();
    }

    const SummonHotKey& hotKey() const { return delegate.hotKeyService().state(); }

    FakePlatform platform;
    AppSettings settings{platform.defaults};
    ThemeManager themeManager{platform.defaults};
    QTemporaryDir directory;
    double now = 1000;
    AppDelegate delegate{platform, settings, themeManager, directory.path(),
                         [this] { return now; }};
};

TEST_F(AppDelegateTest, StartsHiddenWithTheApplicationsBeforeThePanes) {
    platform.applications.names = QStringList{QStringLiteral("Editor"), QStringLiteral("Mail")};
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(delegate.engine().targets().size(), 38U);
    QCoreApplication::processEvents();
    ASSERT_EQ(delegate.engine().targets().size(), 40U);
    EXPECT_EQ(testing::FakeListing::alive, 0) << "a listing holds files open";
    EXPECT_EQ(delegate.engine().targets()[1].displayName(), QStringLiteral("Mail"));
    EXPECT_EQ(delegate.engine().targets()[2].displayName(), QStringLiteral("Wi-Fi"));
    EXPECT_FALSE(delegate.isPanelVisible());
    EXPECT_EQ(platform.hotKeys.registered,
              (QStringList{QStringLiteral("handler"), QStringLiteral("2304+49")}));
}

TEST_F(AppDelegateTest, ThePanelsWindowAndToolTipsFollowTheTheme) {
    const auto background = [] {
        return QToolTip::palette().color(QPalette::Inactive, QPalette::ToolTipBase);
    };
    const auto expected = [this](ColorScheme scheme) {
        return resolve(scheme, themeManager.preset()).elevatedBackground.toQColor();
    };
    themeManager.setAppearance(ThemeManager::Appearance::Dark);
    start();
    EXPECT_EQ(background(), expected(ColorScheme::Dark));
    EXPECT_EQ(platform.frame.appearance, platform::WindowFrame::Appearance::Dark);
    themeManager.setAppearance(ThemeManager::Appearance::Light);
    EXPECT_EQ(background(), expected(ColorScheme::Light));
    EXPECT_EQ(platform.frame.appearance, platform::WindowFrame::Appearance::Light);
}

TEST_F(AppDelegateTest, ThePanelFollowsTheFontWhileItIsHidden) {
    start();
    const auto widgets = QApplication::allWidgets();
    const auto field = std::ranges::find_if(
        widgets, [](QWidget* widget) { return qobject_cast<SearchField*>(widget); });
    ASSERT_NE(field, widgets.end());
    const QFont before = QApplication::font();
    QApplication::setFont(QFont(QStringLiteral("Another"), 30));
    QCoreApplication::processEvents();
    EXPECT_EQ((*field)->font().family(), QStringLiteral("Another"));
    EXPECT_EQ((*field)->font().pixelSize(), 18);
    QApplication::setFont(before);
}

TEST_F(AppDelegateTest, TheHotKeyTogglesThePanelAndScansAgainAfterThreeSeconds) {
    start();
    EXPECT_EQ(platform.applications.scans, 1);
    for (const double later : {1000.0, 1000.5, 1002.9}) {
        now = later;
        pressHotKey();
        EXPECT_TRUE(delegate.isPanelVisible());
        EXPECT_TRUE(platform.host.hasKeyboard);
        EXPECT_EQ(platform.clicks.observers, 1);
        pressHotKey();
        EXPECT_FALSE(delegate.isPanelVisible());
        EXPECT_FALSE(platform.host.hasKeyboard);
        EXPECT_EQ(platform.clicks.observers, 0);
        EXPECT_EQ(platform.applications.scans, 1);
    }

    now = 1003.0;
    pressHotKey();
    QCoreApplication::processEvents();
    EXPECT_EQ(platform.applications.scans, 2);
    now = 1010;
    pressHotKey();
    EXPECT_EQ(platform.applications.scans, 2);
    // The clock was set back.
    now = 500;
    pressHotKey();
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.applications.scans == 3; }));
}

TEST_F(AppDelegateTest, AScanRefreshesTheResultsOfTheOpenPanel) {
    start();
    pressHotKey();
    delegate.engine().setQuery(QStringLiteral("zebra"));
    EXPECT_TRUE(delegate.engine().results().empty());
    delegate.dismissPanel();
    now += 5;
    platform.applications.names = QStringList{QStringLiteral("Zebra")};
    platform.hotKeys.handler(HotKeyService::identity);
    EXPECT_TRUE(QTest::qWaitFor([this] { return delegate.isPanelVisible(); }));
    delegate.engine().setQuery(QStringLiteral("zebra"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return delegate.engine().results().size() == 1; }));

    // A scan may also bring the icon that was missing.
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.loader.misses == 1; }));
    delegate.dismissPanel();
    now += 5;
    pressHotKey();
    delegate.engine().setQuery(QStringLiteral("zebra"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.loader.misses == 2; }));
}

TEST_F(AppDelegateTest, AScanGivesWayToTheUserAndToTheNextScan) {
    platform.applications.names = QStringList{QStringLiteral("Zebra")};
    platform.applications.isEndless = true;
    start();
    pressHotKey();
    EXPECT_TRUE(delegate.isPanelVisible());
    EXPECT_EQ(delegate.engine().targets().size(), 38U);
    delegate.dismissPanel();
    platform.applications.isEndless = false;
    EXPECT_TRUE(QTest::qWaitFor([this] { return delegate.engine().targets().size() == 39; }));

    platform.applications.isEndless = true;
    for (const int scan : {2, 3}) {
        platform.applications.names << QStringLiteral("Zebu %1").arg(scan);
        now += 5;
        pressHotKey();
        EXPECT_TRUE(QTest::qWaitFor([&] { return platform.applications.scans == scan; }));
        delegate.dismissPanel();
    }
    platform.applications.isEndless = false;
    EXPECT_TRUE(QTest::qWaitFor([this] { return delegate.engine().targets().size() == 41; }));
}

TEST_F(AppDelegateTest, OnlyAPickThatWasNotOnTopTeaches) {
    platform.applications.names =
        QStringList{QStringLiteral("Chess"), QStringLiteral("Chest"), QStringLiteral("Checkers")};
    start();
    const QString top = launchResult(QStringLiteral("che"), 0);
    EXPECT_EQ(platform.fakeWorkspace.opened, QStringList{QStringLiteral("Chess.desktop")});
    EXPECT_EQ(delegate.frecency().weight(top, now), 1.0);
    EXPECT_TRUE(delegate.learned().table().isEmpty());
    EXPECT_FALSE(delegate.isPanelVisible());
    EXPECT_EQ(delegate.engine().query(), QString());

    const QString second = launchResult(QStringLiteral("Che "), 1);
    EXPECT_EQ(delegate.learned().boost(QStringLiteral("che"), second, now), 1.5);
    EXPECT_EQ(delegate.frecency().weight(second, now), 1.0);

    // Chosen some other way, while nothing was listed.
    pressHotKey();
    delegate.engine().setQuery(QStringLiteral("zzz"));
    const LaunchTarget pane = delegate.engine().targets().back();
    delegate.launch(pane);
    EXPECT_EQ(delegate.learned().boost(QStringLiteral("zzz"), pane.id(), now), 1.5);
    EXPECT_EQ(platform.fakeWorkspace.opened.last(), pane.id());
}

TEST_F(AppDelegateTest, LogsAnApplicationThatDoesNotOpenThoughItCounts) {
    platform.applications.names = QStringList{QStringLiteral("Editor")};
    start();
    const QString id = launchResult(QStringLiteral("editor"), 0);
    testing::LogLines log{QStringLiteral("Quorvantel: ")};
    platform.fakeWorkspace.completions.back()(QStringLiteral("no such program"));
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral(
                               "Quorvantel: failed to open Editor.desktop: no such program")});
    EXPECT_EQ(delegate.frecency().weight(id, now), 1.0);
}

TEST_F(AppDelegateTest, FallsBackToTheDefaultHotKeyOnceAndOnlyAtTheStart) {
    settings.setHotKeyBinding({40, 0x1000});
    platform.hotKeys.refused = {QStringLiteral("4096+40")};
    testing::LogLines log{QStringLiteral("Quorvantel: ")};
    start();
    EXPECT_EQ(log.lines(),
              QStringList{QStringLiteral("Quorvantel: hotkey registration failed: "
                                         "RegisterEventHotKey failed with OSStatus 10.")});
    EXPECT_EQ(hotKey().active, HotKeyBinding::defaultBinding());

    log.take();
    platform.hotKeys.refused << QStringLiteral("4096+38");
    settings.setHotKeyBinding({38, 0x1000});
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_EQ(hotKey().active, std::nullopt);
    EXPECT_EQ(platform.hotKeys.registered, QStringList());
    settings.setHotKeyBinding({37, 0x1000});
    EXPECT_EQ(hotKey().active, (HotKeyBinding{37, 0x1000}));
}

TEST_F(AppDelegateTest, RecordingTheRefusedHotKeyAgainRegistersItOnceItIsFree) {
    settings.setHotKeyBinding({40, 0x1000});
    platform.hotKeys.refused = {QStringLiteral("4096+40")};
    start();
    delegate.openSettings();
    const auto recordAgain = [this] {
        for (const QWidget* const window : QApplication::topLevelWidgets()) {
            if (auto* const recorder = window->findChild<HotKeyRecorderView*>()) {
                recorder->click();
            }
        }
        platform.capture.press({40, 0x1000});
    };
    recordAgain();
    EXPECT_EQ(hotKey().active, HotKeyBinding::defaultBinding()) << "still at work";
    platform.hotKeys.refused.clear();
    recordAgain();
    EXPECT_EQ(hotKey().active, settings.hotKeyBinding());
    EXPECT_EQ(platform.hotKeys.registered.last(), QStringLiteral("4096+40"));
}

TEST_F(AppDelegateTest, ARefusedDefaultIsTriedOnceAndLoggedOnce) {
    platform.hotKeys.refused = {QStringLiteral("2304+49")};
    testing::LogLines log{QStringLiteral("Quorvantel: ")};
    start();
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_EQ(platform.hotKeys.log.count(QStringLiteral("+2304+49")), 1);
    EXPECT_EQ(hotKey().active, std::nullopt);
}

TEST_F(AppDelegateTest, LogsTheLossOfTheHotKey) {
    start();
    testing::LogLines log{QStringLiteral("Quorvantel: ")};
    platform.hotKeys.turn(testing::FakeHotKeys::refusal);
    platform.hotKeys.turn(platform::HotKeyRegistered{});
    EXPECT_EQ(log.lines(),
              QStringList{QStringLiteral("Quorvantel: hotkey registration failed: "
                                         "RegisterEventHotKey failed with OSStatus 10.")});
}

TEST_F(AppDelegateTest, AClickElsewhereHidesThePanelOnce) {
    start();
    pressHotKey();
    delegate.engine().setQuery(QStringLiteral("wi"));
    const auto click = platform.clicks.handler;
    click();
    click();
    EXPECT_TRUE(delegate.isPanelVisible());
    const auto resets = delegate.engine().resetToken();
    QCoreApplication::processEvents();
    EXPECT_FALSE(delegate.isPanelVisible());
    EXPECT_EQ(delegate.engine().resetToken(), resets + 1);
    EXPECT_EQ(delegate.engine().query(), QString());
}

TEST_F(AppDelegateTest, HidesThePanelBeforeItShowsTheSettings) {
    start();
    pressHotKey();
    delegate.engine().setQuery(QStringLiteral("wi"));
    platform.activator.onActivate = [this] {
        EXPECT_FALSE(delegate.isPanelVisible());
        EXPECT_FALSE(platform.host.hasKeyboard);
    };
    delegate.openSettings();
    EXPECT_EQ(platform.activator.activations, 1);
    EXPECT_EQ(delegate.engine().query(), QString());
}

TEST_F(AppDelegateTest, RequestsFromOutsideToggleButADoubleClickDoesNotUndoItself) {
    using enum platform::ApplicationRequest;
    start();
    for (const bool isShown : {true, false, true}) {
        now += 1;
        delegate.answer(Summon);
        EXPECT_EQ(delegate.isPanelVisible(), isShown);
    }
    now += 0.1;
    delegate.answer(Summon);
    EXPECT_TRUE(delegate.isPanelVisible());
    now -= 60;
    delegate.answer(Summon);
    EXPECT_FALSE(delegate.isPanelVisible());
    for (const bool isEnabled : {true, false}) {
        delegate.answer(ToggleStartAtLogin);
        EXPECT_EQ(platform.item.enabled, isEnabled);
    }
    themeManager.setAppearance(ThemeManager::Appearance::Dark);
    delegate.answer(OpenSettings);
    EXPECT_EQ(platform.activator.activations, 1);
    platform.frame.appearance = platform::WindowFrame::Appearance::System;
    delegate.answer(ShowHelp);
    EXPECT_EQ(platform.frame.appearance, platform::WindowFrame::Appearance::Dark);
}

TEST_F(AppDelegateTest, TheEndReleasesTheHotKeyAndTheKeyboard) {
    for (const bool isAnnounced : {true, false}) {
        {
            AppDelegate ending(platform, settings, themeManager, directory.path());
            ending.applicationDidFinishLaunching();
            ending.togglePanel();
            EXPECT_TRUE(platform.host.hasKeyboard);
            if (isAnnounced) {
                ending.applicationWillTerminate();
                settings.setHotKeyBinding({40, 0x1000});
                EXPECT_EQ(platform.hotKeys.registered, QStringList());
            }
        }
        EXPECT_FALSE(settings.onHotKeyChange) << "nobody is there to hear of it";
        EXPECT_FALSE(platform.host.hasKeyboard);
    }
}

} // namespace
} // namespace quorvantel
