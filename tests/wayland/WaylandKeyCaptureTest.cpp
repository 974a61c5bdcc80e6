#include "platform/linux/wayland/WaylandKeyCapture.h"

#include "platform/GlobalHotKeys.h"
#include "support/WaitUntil.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <QApplication>
#include <QLineEdit>
#include <QShortcut>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <wayland-client.h>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using testing::WaylandCompositor;
using testing::WaylandInput;
using Fate = KeyCapture::Fate;

class WaylandKeyCaptureTest : public ::testing::TestWithParam<const char*> {};

TEST_P(WaylandKeyCaptureTest, TakesTheKeysFromTheCompositorAndTheWindow) {
    const WaylandCompositor compositor({.program = QString::fromLatin1(GetParam())});
    compositor.enter();
    int argumentCount = 0;
    const QApplication application(argumentCount, nullptr);
    const auto connection = WaylandConnection::ofToolkit();
    const WaylandKeyboard keyboard(*connection);
    WaylandKeyCapture capture(*connection, keyboard, WaylandKeyCapture::Shortcuts::Inhibited);
    WaylandInput input(compositor);
    QLineEdit window;
    int shortcuts = 0;
    const QShortcut shortcut(QKeySequence(QStringLiteral("Ctrl+K")), &window, [&] { ++shortcuts; });
    window.show();
    ASSERT_TRUE(waitUntil([&] { return window.hasFocus(); }));
    if (compositor.options().program == QStringLiteral("sway")) {
        compositor.command(QStringLiteral("bindsym Mod1+F4 kill"));
    }

    std::vector<KeyPress> presses;
    std::unique_ptr<KeyCapture::Token> token;
    Fate fate = Fate::Swallowed;
    const auto handler = [&](const KeyPress& press) {
        presses.push_back(press);
        token.reset();
        return fate;
    };
    const auto record = [&](std::initializer_list<int> keys) {
        presses.clear();
        token = capture.capture(*window.windowHandle(), handler);
        // The inhibition holds once the compositor knows of it.
        QApplication::processEvents();
        wl_display_roundtrip(&connection->display());
        input.press(keys);
        return waitUntil([&] { return !presses.empty(); });
    };
    // Closes windows otherwise.
    ASSERT_TRUE(record({KEY_LEFTALT, KEY_F4}));
    EXPECT_EQ(presses, std::vector{(KeyPress{118, HotKeyModifier::option})});
    ASSERT_TRUE(record({KEY_LEFTCTRL, KEY_K}));
    EXPECT_EQ(presses, std::vector{(KeyPress{40, HotKeyModifier::control})});
    ASSERT_TRUE(record({KEY_A}));
    fate = Fate::PassedOn;
    ASSERT_TRUE(record({KEY_LEFTCTRL, KEY_K}));
    ASSERT_TRUE(record({KEY_B}));
    input.press({KEY_C});
    EXPECT_TRUE(waitUntil([&] { return window.text() == QStringLiteral("bc"); }))
        << window.text().toStdString();
    EXPECT_EQ(shortcuts, 1);
    EXPECT_EQ(presses.size(), 1);
    EXPECT_TRUE(window.isVisible());
}

INSTANTIATE_TEST_SUITE_P(On, WaylandKeyCaptureTest, ::testing::Values("sway", "kwin_wayland"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace quorvantel::platform
