#include "gnome/GnomeSession.h"
#include "platform/linux/shortcuts/DesktopHotKeys.h"
#include "platform/linux/shortcuts/GnomeSettings.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace quorvantel::platform {
namespace {

using testing::GnomeSession;
using testing::waitUntil;
using namespace Qt::StringLiterals;

TEST(GnomeHotKeyTest, RunsTheStartCommandAndFollowsTheSystemsSettings) {
    GnomeSession gnome;
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const QTemporaryDir directory;
    const QString trace = directory.filePath(u"started"_s);
    DesktopHotKeys hotKeys(QDBusConnection::sessionBus(), {u"GNOME"_s}, u"touch "_s + trace,
                           Keymap::us());
    auto registration = hotKeys.registerHotKey(49, 0x900, {1, 1}, nullptr);
    const auto turnsTo = [&](const HotKeyState& state) {
        return waitUntil([&] { return registration->state() == state; });
    };
    const auto works = [&](std::initializer_list<int> keys) {
        return waitUntil([&] {
            // GNOME takes a change of its settings over in its own time.
            gnome.press(keys);
            return QFile::remove(trace);
        });
    };
    ASSERT_TRUE(turnsTo(HotKeyRegistered{}));
    EXPECT_TRUE(works({KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE}));
    const auto entry = GnomeSettings::find(
        "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding",
        u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/quorvantel/"_s);
    entry->setText("binding", u"<Control>F9"_s);
    EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Ctrl+F9"_s}));
    EXPECT_TRUE(works({KEY_LEFTCTRL, KEY_F9}));
}

} // namespace
} // namespace quorvantel::platform
