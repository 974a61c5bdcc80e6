#include "hotkey/HotKeyRecorderView.h"
#include "hotkey/ScriptedKeyCapture.h"
#include "settings/FCPToolbarButtonStyle.h"
#include "settings/PlainButton.h"
#include "settings/SegmentedPill.h"
#include "settings/SettingsText.h"
#include "settings/SettingsWindowController.h"
#include "support/FakeLook.h"

#include <QAccessible>
#include <QMessageBox>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvantel {
namespace {

class CountingActivator : public platform::WindowActivator {
public:
    void activate(QWindow& /*window*/) override { ++activations; }

    int activations = 0;
};

class SettingsWindowTest : public ::testing::Test {
protected:
    SettingsView& show() {
        controller.show(learned);
        EXPECT_TRUE(QTest::qWaitForWindowActive(controller.window()));
        return *controller.window();
    }

    template <typename Button>
    Button* button(const QString& text) {
        const auto buttons = controller.window()->findChildren<Button*>();
        const auto found = std::ranges::find(buttons, text, &Button::text);
        return found == buttons.end() ? nullptr : *found;
    }

    bool shows(const QString& text) {
        const auto texts = controller.window()->findChildren<SettingsText*>();
        return std::ranges::any_of(texts, [&text](const SettingsText* candidate) {
            return candidate->isVisible() && candidate->text() == text;
        });
    }

    QMessageBox* confirmation() { return controller.window()->findChild<QMessageBox*>(); }

    void askForReset() {
        show().select(SettingsSection::Advanced);
        QTest::mouseClick(button<PlainButton>(QStringLiteral("Reset learned abbreviations")),
                          Qt::LeftButton);
        ASSERT_NE(confirmation(), nullptr);
    }

    QTemporaryDir directory;
    LearnedAbbreviationStore learned{directory.path()};
    testing::FakeLook look;
    AppSettings settings{look.defaults};
    HotKeyActivity activity;
    testing::ScriptedKeyCapture keyboard;
    CountingActivator activator;
    int helpRequests = 0;
    SettingsWindowController controller{{settings, activity, look.manager, look.theme, look.icons,
                                         keyboard, activator, [this] { ++helpRequests; }}};
};

TEST_F(SettingsWindowTest, EveryRequestShowsTheSameWindowCentredAndInFront) {
    EXPECT_EQ(controller.window(), nullptr);
    SettingsView& window = show();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Quorvantel Settings"));
    EXPECT_EQ(window.shownSection(), SettingsSection::Hotkey);

    window.select(SettingsSection::Advanced);
    window.move(0, 0);
    EXPECT_EQ(&show(), &window);
    const QPoint centre = window.screen()->availableGeometry().center();
    EXPECT_LE((window.frameGeometry().center() - centre).manhattanLength(), 2);

    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(&show(), &window);
    EXPECT_EQ(window.shownSection(), SettingsSection::Advanced);
    EXPECT_EQ(activator.activations, 3);
}

TEST_F(SettingsWindowTest, ControlAndQQuitsTheLauncher) {
    SettingsView& window = show();
    QSignalSpy quits(qApp, &QCoreApplication::aboutToQuit);
    QMetaObject::invokeMethod(
        &window, [&window] { QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier); },
        Qt::QueuedConnection);
    QCoreApplication::exec();
    EXPECT_EQ(quits.count(), 1);
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
    EXPECT_TRUE(shows(QStringLiteral("No additional settings yet.")));

    sidebar->clearSelection();
    EXPECT_EQ(window.shownSection(), SettingsSection::Hotkey);
    EXPECT_TRUE(shows(QStringLiteral("Summon hotkey")));

    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(sidebar);
    ASSERT_EQ(spoken->childCount(), 4);
    EXPECT_EQ(spoken->child(3)->role(), QAccessible::ListItem);
    EXPECT_EQ(spoken->child(3)->text(QAccessible::Name), QStringLiteral("Appearance"));
}

TEST_F(SettingsWindowTest, TheHelpButtonAndF1AskForHelp) {
    SettingsView& window = show();
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(helpRequests, 1);
    window.select(SettingsSection::General);
    auto* const help = button<FCPToolbarButtonStyle>(QStringLiteral("Quorvantel Help"));
    QTest::mouseClick(help, Qt::LeftButton);
    EXPECT_EQ(helpRequests, 2);
    help->setFocus();
    QTest::keyClick(help, Qt::Key_Return);
    EXPECT_EQ(helpRequests, 3);
}

TEST_F(SettingsWindowTest, ResetToDefaultStoresTheDefaultHotKey) {
    settings.setHotKeyBinding({40, 0x0300});
    show();
    QTest::mouseClick(button<PlainButton>(QStringLiteral("Reset to default (⌃⌥⌘Space)")),
                      Qt::LeftButton);
    EXPECT_EQ(settings.hotKeyBinding(), HotKeyBinding::defaultBinding());
}

TEST_F(SettingsWindowTest, ARefusedHotKeyIsExplainedWhileItIsRefused) {
    const QString explanation = QStringLiteral("RegisterEventHotKey failed with OSStatus 10.");
    activity.set(HotKeyBinding::defaultBinding(), HotKeyError::registrationFailed(10));
    show();
    EXPECT_TRUE(shows(explanation));
    activity.set(HotKeyBinding::defaultBinding(), std::nullopt);
    EXPECT_FALSE(shows(explanation));
    activity.set(std::nullopt, HotKeyError::registrationFailed(10));
    EXPECT_TRUE(shows(explanation));
}

TEST_F(SettingsWindowTest, LeavingTheSectionEndsTheRecording) {
    SettingsView& window = show();
    QTest::mouseClick(window.findChild<HotKeyRecorderView*>(), Qt::LeftButton);
    EXPECT_EQ(keyboard.captures, 1);
    window.select(SettingsSection::General);
    EXPECT_EQ(keyboard.captures, 0);
}

TEST_F(SettingsWindowTest, TheResetAsksFirstAndForgetsForGood) {
    learned.learn(QStringLiteral("ch"), QStringLiteral("org.example.Chess"), 0);
    askForReset();
    look.manager.setAppearance(ThemeManager::Appearance::Dark);
    EXPECT_EQ(confirmation()->palette().color(QPalette::Window), QColor(0x16, 0x17, 0x19));
    EXPECT_EQ(confirmation()->text(), QStringLiteral("Reset learned abbreviations?"));
    EXPECT_EQ(confirmation()->informativeText(),
              QStringLiteral("This cannot be undone. All learned search→result associations will "
                             "be cleared."));
    EXPECT_FALSE(learned.table().isEmpty());
    QTest::mouseClick(button<QPushButton>(QStringLiteral("Reset")), Qt::LeftButton);
    EXPECT_TRUE(learned.table().isEmpty());
    EXPECT_TRUE(LearnedAbbreviationStore(directory.path()).table().isEmpty());
}

TEST_F(SettingsWindowTest, CancelAndEscapeKeepWhatWasLearned) {
    learned.learn(QStringLiteral("ch"), QStringLiteral("org.example.Chess"), 0);
    askForReset();
    QTest::mouseClick(button<QPushButton>(QStringLiteral("Cancel")), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(confirmation(), nullptr);

    askForReset();
    QTest::keyClick(confirmation(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(confirmation(), nullptr);

    // Return is the safe choice as well.
    askForReset();
    QTest::keyClick(confirmation(), Qt::Key_Return);
    EXPECT_EQ(LearnedAbbreviationStore(directory.path()).table(), learned.table());
    EXPECT_FALSE(learned.table().isEmpty());
}

class AppearancePaneTest : public SettingsWindowTest {
protected:
    AppearancePaneTest() { show().select(SettingsSection::Appearance); }

    SegmentedPill* pill(const QString& name) {
        const auto pills = controller.window()->findChildren<SegmentedPill*>();
        return *std::ranges::find(pills, name, &QWidget::accessibleName);
    }

    SegmentedPill* appearance() { return pill(QStringLiteral("Appearance")); }
    SegmentedPill* surface() { return pill(QStringLiteral("Surface")); }

    void click(SegmentedPill* control, int segment) {
        QTest::mouseClick(control->findChildren<PillSegment*>().at(segment), Qt::LeftButton);
    }

    /// The colour in the lower right corner of the window.
    QColor background() {
        const QImage image = controller.window()->grab().toImage();
        return image.pixelColor(image.width() - 2, image.height() - 2);
    }
};

TEST_F(AppearancePaneTest, ChoicesAreStoredAndRecolourTheWindowAtOnce) {
    EXPECT_EQ(appearance()->selection(), 2);
    EXPECT_EQ(background(), QColor(0xF4, 0xF5, 0xF7));
    click(appearance(), 1);
    EXPECT_EQ(look.defaults.values[QStringLiteral("appearance")],
              platform::UserDefaults::Value(QStringLiteral("dark")));
    EXPECT_EQ(background(), QColor(0x16, 0x17, 0x19));
    click(surface(), 1);
    EXPECT_EQ(look.defaults.values[QStringLiteral("preset")],
              platform::UserDefaults::Value(QStringLiteral("teal")));
    EXPECT_EQ(background(), QColor(0x0F, 0x1C, 0x1A));
    click(appearance(), 0);
    EXPECT_EQ(background(), QColor(0xED, 0xF6, 0xF3));
    click(appearance(), 2);
    EXPECT_EQ(look.manager.appearance(), ThemeManager::Appearance::Auto);
}

TEST_F(AppearancePaneTest, ARetiredPresetSelectsNoSegment) {
    look.manager.setPreset(ThemePreset::Glass);
    EXPECT_EQ(surface()->selection(), std::nullopt);
    click(surface(), 0);
    EXPECT_EQ(look.manager.preset(), ThemePreset::Graphite);
}

} // namespace
} // namespace quorvantel
