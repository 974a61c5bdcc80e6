#include "platform/linux/shortcuts/DesktopHotKeys.h"
#include "platform/linux/shortcuts/GnomeSettings.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandInput.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace quorvantel::platform {
namespace {

using namespace testing;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// A session of GNOME with the service that runs the commands of custom key bindings.
class GnomeHotKeyTest : public ::testing::Test {
protected:
    GnomeHotKeyTest() { gnome.enter(); }

    /// GNOME takes a change of its settings over in its own time.
    bool works(std::initializer_list<int> keys, const std::function<bool()>& isDone) {
        return waitUntil([&] {
            input.press(keys);
            return waitUntil(isDone, 1s);
        });
    }

    WaylandCompositor gnome{{.program = u"gnome-shell"_s}};
    ChildProcess mediaKeys{
        {.program = u"/usr/libexec/gsd-media-keys"_s, .environment = gnome.environment()}};
    WaylandInput input{gnome};
};

TEST_F(GnomeHotKeyTest, RunsTheStartCommandAndFollowsTheSystemsSettings) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const QString trace = inHome(u"started"_s);
    DesktopHotKeys hotKeys(QDBusConnection::sessionBus(), {u"GNOME"_s}, u"touch "_s + trace,
                           Keymap::us());
    auto registration = hotKeys.registerHotKey(49, 0x900, {1, 1}, nullptr);
    const auto turnsTo = [&](const HotKeyState& state) {
        return waitUntil([&] { return registration->state() == state; });
    };
    const auto isStarted = [&trace] { return QFile::remove(trace); };
    ASSERT_TRUE(turnsTo(HotKeyRegistered{}));
    EXPECT_TRUE(works({KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE}, isStarted));
    const auto entry = GnomeSettings::find(
        "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding",
        u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/quorvantel/"_s);
    entry->setText("binding", u"<Control>F9"_s);
    EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Ctrl+F9"_s}));
    EXPECT_TRUE(works({KEY_LEFTCTRL, KEY_F9}, isStarted));
}

TEST_F(GnomeHotKeyTest, ShowsAndHidesTheLaunchersPanel) {
    const WaylandClient application(gnome);
    ChildProcess::Launch launch{.program = QStringLiteral(QUORVANTEL_PROGRAM),
                                .outputPath = inHome(u"output"_s)};
    launch.environment.remove(u"QT_QPA_PLATFORM"_s);
    const ChildProcess launcher(launch);
    const std::initializer_list<int> hotKey{KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE};
    const auto isShown = [&] { return !application.isActive(); };
    EXPECT_TRUE(works(hotKey, isShown));
    input.press({KEY_LEFTALT, KEY_F4});
    EXPECT_TRUE(waitUntil([&] { return application.isActive(); })) << "it closes like any window";
    EXPECT_TRUE(works(hotKey, isShown));
    EXPECT_TRUE(works(hotKey, [&] { return application.isActive(); }));
    input.type("x");
    EXPECT_TRUE(waitUntil([&] { return application.typed().endsWith('x'); }));
}

} // namespace
} // namespace quorvantel::platform
