#pragma once

#include "settings/CopyableText.h"
#include "settings/FCPToolbarButtonStyle.h"
#include "settings/HotKeyRecorderView.h"
#include "settings/PlainButton.h"
#include "settings/SegmentedPill.h"
#include "settings/SettingsText.h"
#include "settings/SettingsWindowController.h"
#include "support/FakeHotKeys.h"
#include "support/FakeLook.h"
#include "support/FakeScreens.h"
#include "support/FakeWindowActivator.h"
#include "support/FakeWindowFrame.h"
#include "support/ScriptedKeyCapture.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace quorvantel::testing {

/// The window of the settings on a system of the test's own.
class SettingsWindowFixture : public ::testing::Test {
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

    HotKeyRecorderView& recorder() {
        return *controller.window()->findChild<HotKeyRecorderView*>();
    }

    PlainButton* resetButton() {
        return button<PlainButton>(QStringLiteral("Reset to default (⌃⌥⌘Space)"));
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
    FakeLook look;
    AppSettings settings{look.defaults};
    FakeHotKeys hotKeys;
    HotKeyService hotKey{hotKeys};
    ScriptedKeyCapture keyboard;
    FakeWindowActivator activator;
    FakeWindowFrame frame;
    FakeScreens screens;
    int retries = 0;
    int helpRequests = 0;
    SettingsWindowController controller{{settings, hotKey, look.manager, look.theme, look.icons,
                                         keyboard, activator, frame, screens, [this] { ++retries; },
                                         [this] { ++helpRequests; }}};
};

} // namespace quorvantel::testing
