#include "platform/linux/shortcuts/GnomeShortcut.h"

#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using namespace Qt::StringLiterals;

constexpr auto mediaKeys = "org.gnome.settings-daemon.plugins.media-keys";
constexpr auto customBinding = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr auto listKey = "custom-keybindings";

const QString folder = u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/"_s;
const QString ours = folder + u"quorvantel/"_s;
const QString others = folder + u"custom0/"_s;

/// On GNOME's real schemas, with the settings in a file of the test's own.
class GnomeShortcutTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        qputenv("GSETTINGS_BACKEND", "keyfile");
        qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    }

    void SetUp() override {
        list = GnomeSettings::find(mediaKeys);
        entry = GnomeSettings::find(customBinding, ours);
        other = GnomeSettings::find(customBinding, others);
        ASSERT_TRUE(list && entry && other);
        other->setText("name", u"Theirs"_s);
        other->setText("binding", u"<Super>j"_s);
        list->setList(listKey, {others, u"no path"_s});
    }
    void TearDown() override {
        shortcut.reset();
        // What is not the launcher's has not been touched.
        EXPECT_EQ(other->text("binding"), u"<Super>j"_s);
        EXPECT_EQ(list->list(listKey).mid(0, 2), (QStringList{others, u"no path"_s}));
    }

    void bind(const QString& accelerator, bool keepsChoice = true) {
        shortcut.reset();
        answer.reset();
        shortcut = std::make_unique<GnomeShortcut>(
            fromGtkAccelerator(accelerator).value(), u"launch"_s, keepsChoice,
            DesktopShortcut::Handlers{[this](const ShortcutAnswer& given) { answer = given; }, {}});
    }

    bool answers(const HotKeyState& state) {
        return waitUntil([&] { return answer == ShortcutAnswer(state); });
    }

    bool refuses(HotKeyStatus status, const QString& word = {}) {
        return waitUntil([&] {
            const auto* const state = answer ? std::get_if<HotKeyState>(&*answer) : nullptr;
            const auto* const refusal =
                state != nullptr ? std::get_if<HotKeyUnavailable>(state) : nullptr;
            return refusal != nullptr && refusal->status == status &&
                   refusal->reason.contains(word);
        });
    }

    bool isListed() { return list->list(listKey).contains(ours); }

    std::unique_ptr<GnomeSettings> list;
    std::unique_ptr<GnomeSettings> entry;
    std::unique_ptr<GnomeSettings> other;
    std::unique_ptr<GnomeShortcut> shortcut;
    std::optional<ShortcutAnswer> answer;
};

TEST_F(GnomeShortcutTest, MakesChangesAndRemovesAnEntryOfItsOwn) {
    bind(u"<Alt><Super>space"_s);
    ASSERT_TRUE(answers(HotKeyRegistered{}));
    EXPECT_TRUE(isListed());
    EXPECT_EQ(entry->text("binding"), u"<Alt><Super>space"_s);
    EXPECT_EQ(entry->text("command"), u"launch"_s);
    shortcut->setSuspended(true);
    EXPECT_FALSE(isListed());
    shortcut->setSuspended(false);
    EXPECT_TRUE(isListed());
    bind(u"<Super>k"_s, false);
    EXPECT_TRUE(answers(HotKeyRegistered{}));
    EXPECT_EQ(entry->text("binding"), u"<Super>k"_s);
    shortcut.reset();
    EXPECT_FALSE(isListed());
    EXPECT_EQ(entry->text("binding"), QString());
}

TEST_F(GnomeShortcutTest, FollowsWhatTheUserDoesInTheSystemsSettings) {
    bind(u"<Alt><Super>space"_s);
    ASSERT_TRUE(answers(HotKeyRegistered{}));
    entry->setText("binding", u"<Control>F9"_s);
    EXPECT_TRUE(answers(HotKeyRegistered{u"Ctrl+F9"_s}));
    // The choice outlasts the launcher, until it asks for something else.
    bind(u"<Alt><Super>space"_s);
    EXPECT_TRUE(answers(HotKeyRegistered{u"Ctrl+F9"_s}));
    bind(u"<Super>space"_s, false);
    EXPECT_TRUE(refuses(ShortcutStatus::taken));
    EXPECT_FALSE(isListed());
    bind(u"<Super>k"_s, false);
    EXPECT_TRUE(answers(HotKeyRegistered{}));

    entry->setText("binding", QString());
    EXPECT_TRUE(refuses(ShortcutStatus::switchedOff));
    bind(u"<Super>k"_s);
    EXPECT_TRUE(refuses(ShortcutStatus::switchedOff));
    entry->setText("binding", u"<Super>k"_s);
    EXPECT_TRUE(answers(HotKeyRegistered{}));
    list->setList(listKey, {others, u"no path"_s});
    EXPECT_TRUE(refuses(ShortcutStatus::switchedOff));
}

TEST_F(GnomeShortcutTest, WhatIsTakenIsRefusedUntilItIsFree) {
    // The input source is switched with it.
    bind(u"<Super>space"_s);
    EXPECT_TRUE(refuses(ShortcutStatus::taken, u"input source"_s));
    EXPECT_FALSE(isListed());
    bind(u"<Super>j"_s);
    EXPECT_TRUE(refuses(ShortcutStatus::taken, u"Theirs"_s));
    bind(u"<Alt>space"_s);
    EXPECT_TRUE(refuses(ShortcutStatus::taken));
    const auto windows = GnomeSettings::find("org.gnome.desktop.wm.keybindings");
    windows->setList("activate-window-menu", {});
    EXPECT_TRUE(answers(HotKeyRegistered{}));
    EXPECT_TRUE(isListed());
    windows->setList("activate-window-menu", {u"<Alt>Space"_s});
    EXPECT_TRUE(refuses(ShortcutStatus::taken));
    windows->reset("activate-window-menu");
}

} // namespace
} // namespace quorvantel::platform
