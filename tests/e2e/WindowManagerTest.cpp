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
        EXPECT_FALSE(session.panel()) << "the start shows nothing";
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

    void openSettings() {
        session.summon();
        session.keyboard().press({XK_Super_L, XK_comma});
        waitForActive("Quorvantel Settings");
        EXPECT_TRUE(waitUntil([this] { return !session.desktop().isKeyboardGrabbed(); }));
    }

    /// From the settings.
    void openHelp() {
        session.keyboard().press({XK_F1});
        waitForActive("Quorvantel Help");
    }

    void waitForActive(const QByteArray& title) {
        EXPECT_TRUE(waitUntil([&] { return session.desktop().activeTitle() == title; }))
            << title.constData();
    }

    void switchToSecondDesktop() {
        // A late activation would take the user back.
        ASSERT_TRUE(session.waitForRest());
        const XConnection& connection = session.connection();
        if (GetParam() == std::string("i3")) { // It makes its desktops as they are asked for.
            ChildProcess::Launch launch{.program = QStringLiteral("i3-msg"),
                                        .arguments = {QStringLiteral("workspace 2")}};
            launch.environment.insert(QStringLiteral("DISPLAY"),
                                      QString::fromLatin1(session.display()));
            ChildProcess(launch).waitForExit(patience);
        } else {
            connection.request(connection.root(), "_NET_NUMBER_OF_DESKTOPS", {2});
            connection.request(connection.root(), "_NET_CURRENT_DESKTOP", {1});
        }
        ASSERT_TRUE(waitUntil([&] {
            return connection.property(connection.root(), "_NET_CURRENT_DESKTOP") ==
                   std::vector{1U};
        }));
        constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK,
                                     &events);
    }

    /// Whether the user has stayed on the second desktop, without a moment on another one.
    bool hasStayedOnSecondDesktop() {
        const XConnection& connection = session.connection();
        bool hasStayed = true;
        while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection.get())}) {
            const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            hasStayed &= event->response_type != XCB_PROPERTY_NOTIFY ||
                         change->atom != connection.atom("_NET_CURRENT_DESKTOP");
        }
        return hasStayed;
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
    session.search("zinc", 1);    // With anything left of the old query, it would find nothing.
    session.pressDefaultHotKey(); // While the panel holds the keyboard.
    EXPECT_TRUE(session.waitForDismissal());
    expectInFront("after the hotkey");
    expectTypingReachesTheClient("toggled");
    EXPECT_EQ(client->typed(), "escapedtoggled");
}

TEST_P(WindowManagerTest, AClickElsewhereDismissesAndReachesWhatItHits) {
    const QPoint onDesktop(1200, 700);
    const QPoint inPanel(640, 188);
    for (const QPoint start : {besideThePanel(), inPanel, onDesktop}) {
        session.pointer().moveTo(start);
        session.summon();
        session.pointer().click(onDesktop);
        EXPECT_TRUE(session.waitForDismissal()) << "from " << start.x() << ' ' << start.y();
    }
    session.summon();
    session.pointer().click(session.panel()->center());
    session.search("zinc", 1); // The click in the panel itself has not dismissed it.
    const int before = client->clicks();
    session.pointer().click(besideThePanel());
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(waitUntil([&] { return client->clicks() > before; }));
    expectTypingReachesTheClient("clicked");
    expectInFront("after the click");
}

TEST_P(WindowManagerTest, SettingsAndHelpComeToTheUserFromAnotherDesktopAndFromTheTaskList) {
    const XConnection& connection = session.connection();
    const auto desktopOf = [&connection](xcb_window_t window) {
        return connection.property(window, "_NET_WM_DESKTOP");
    };
    openSettings();
    const xcb_window_t settings = session.desktop().activeWindow();
    openHelp();
    switchToSecondDesktop();
    openSettings();
    EXPECT_EQ(session.desktop().activeWindow(), settings);
    EXPECT_EQ(desktopOf(settings), std::vector{1U});
    openHelp();
    EXPECT_EQ(desktopOf(session.desktop().activeWindow()), std::vector{1U});
    EXPECT_TRUE(hasStayedOnSecondDesktop());
    if (GetParam() != std::string("i3")) { // It has no minimised windows.
        constexpr std::uint32_t iconicState = 3;
        connection.request(settings, "WM_CHANGE_STATE", {iconicState});
        ASSERT_TRUE(waitUntil([&] { return session.desktop().activeWindow() != settings; }));
        openSettings();
    }
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
