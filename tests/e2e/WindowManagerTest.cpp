#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quorvantel {
namespace {

using ::testing::SizeIs;
using namespace ::quorvantel::testing;

const QString zinc = QStringLiteral("zinc");

/// The same behaviour under every window manager; the parameter is the name of its program.
class WindowManagerTest : public ::testing::TestWithParam<const char*> {
protected:
    WindowManagerTest() {
        session.addApplication(zinc, QStringLiteral("Zinc"));
        session.start();
        client.emplace(session.display(), QRect(40, 640, 400, 120));
        active = session.desktop().activeWindow();
        focus = session.desktop().inputFocus();
    }

    void expectInFront(const char* when) {
        EXPECT_EQ(session.desktop().activeWindow(), active) << when;
        EXPECT_EQ(session.desktop().inputFocus(), focus) << when;
    }

    /// Types at once after a dismissal, without a click.
    void expectTypingReachesTheClient(const QByteArray& text) {
        session.keyboard().type(text);
        EXPECT_TRUE(waitUntil([&] { return client->typed().endsWith(text); }))
            << "it has " << client->typed().toStdString();
    }

    /// A place in the client that the panel leaves free, also where windows are tiled.
    QPoint besideThePanel() {
        return session.desktop().geometry(client->id())->bottomLeft() + QPoint(10, -10);
    }

    LauncherSession session{QString::fromLatin1(GetParam())};
    std::optional<ClientWindow> client;
    xcb_window_t active = XCB_WINDOW_NONE;
    xcb_window_t focus = XCB_WINDOW_NONE;
};

TEST_P(WindowManagerTest, TheClientStaysInFrontWhileThePanelTakesTheTyping) {
    ASSERT_EQ(active, client->id());
    for (int showing = 1; showing <= 2; ++showing) {
        session.summon();
        expectInFront("as the panel comes");
        session.search("zinc", 1);
        session.keyboard().press({XK_Return});
        EXPECT_THAT(session.waitForRuns(zinc, static_cast<std::size_t>(showing)), SizeIs(showing));
        EXPECT_TRUE(session.waitForDismissal());
        expectInFront("after the launch");
    }
    expectTypingReachesTheClient("launched");
    EXPECT_EQ(client->typed(), "launched") << "neither hotkey nor query reached it";
}

TEST_P(WindowManagerTest, EscapeGivesTheKeyboardBackAndTheHotKeyToggles) {
    session.summon();
    session.search("zinc", 1);
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    expectInFront("after Escape");
    expectTypingReachesTheClient("escaped");

    session.summon();
    session.pressDefaultHotKey(); // While the panel holds the keyboard.
    EXPECT_TRUE(session.waitForDismissal());
    expectInFront("after the hotkey");
    expectTypingReachesTheClient("toggled");
    EXPECT_EQ(client->typed(), "escapedtoggled");
}

TEST_P(WindowManagerTest, AClickInTheClientDismissesAndReachesIt) {
    session.summon();
    const int before = client->clicks();
    session.pointer().click(besideThePanel());
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(waitUntil([&] { return client->clicks() > before; }));
    expectTypingReachesTheClient("clicked");
    expectInFront("after the click");
}

TEST_P(WindowManagerTest, AVolumeKeyDoesItsWorkBesideThePanel) {
    ForeignHotKey volume(session.display(), XF86XK_AudioLowerVolume, 0);
    ASSERT_TRUE(volume.isHeld());
    session.summon();
    session.keyboard().type("zi");
    session.keyboard().press({XF86XK_AudioLowerVolume});
    session.search("nc", 1);
    EXPECT_TRUE(waitUntil([&] { return volume.presses() == 1; }));
    expectInFront("after the volume key");
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_EQ(client->typed(), "");
}

INSTANTIATE_TEST_SUITE_P(Every, WindowManagerTest,
                         ::testing::Values("openbox", "xfwm4", "kwin_x11", "metacity", "i3"),
                         [](const auto& name) { return std::string(name.param); });

} // namespace
} // namespace quorvantel
