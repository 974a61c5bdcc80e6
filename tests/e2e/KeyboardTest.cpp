#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/ForeignGrab.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace quorvantel {
namespace {

using ::testing::SizeIs;
using namespace ::quorvantel::testing;

const QString zinc = QStringLiteral("zinc");

class KeyboardTest : public ::testing::Test {
protected:
    KeyboardTest() { session.addApplication(zinc, QStringLiteral("Zinc")); }

    void start() {
        session.start();
        client.emplace(session.display(), QRect(40, 640, 400, 120));
    }

    void expectTypingReachesTheClient(const QByteArray& text) {
        session.keyboard().type(text);
        EXPECT_TRUE(waitUntil([&] { return client->typed().endsWith(text); }));
    }

    /// Presses a chord of the desktop, whose modifiers are held until the panel is gone.
    void pressBesideThePanel(const std::vector<xcb_keysym_t>& modifiers, xcb_keysym_t key) {
        for (const xcb_keysym_t modifier : modifiers) {
            session.keyboard().hold(modifier);
        }
        session.keyboard().press({key});
        EXPECT_TRUE(waitUntil([this] { return !session.panel(); }));
        for (const xcb_keysym_t modifier : modifiers) {
            session.keyboard().release(modifier);
        }
        EXPECT_TRUE(session.waitForDismissal());
    }

    std::uint32_t workspace() const {
        const XConnection& connection = session.connection();
        return connection.property(connection.root(), "_NET_CURRENT_DESKTOP").at(0);
    }

    void holdAndRepeat(xcb_keysym_t key) {
        for (int press = 0; press < 4; ++press) {
            // To the server, the press of a key that is down is a repeat.
            session.keyboard().hold(key);
        }
    }

    LauncherSession session;
    std::optional<ClientWindow> client;
};

TEST_F(KeyboardTest, WhatIsTypedBeforeABusyLauncherShowsThePanelIsItsQuery) {
    start();
    session.signal(SIGSTOP);
    session.pressDefaultHotKey();
    session.keyboard().type("zinc");
    session.signal(SIGCONT);
    EXPECT_TRUE(session.waitForPanelHeight(panelHeight(1)));
    session.keyboard().press({XK_Return});
    EXPECT_THAT(session.waitForRuns(zinc, 1), SizeIs(1));
    expectTypingReachesTheClient("after");
    EXPECT_EQ(client->typed(), "after");
}

TEST_F(KeyboardTest, TheMenuOfTheFieldGivesTheKeyboardBackToThePanel) {
    start();
    session.summon();
    session.search("zi", 1);
    const auto windows = [this] { return session.desktop().overrideRedirectWindows().size(); };
    const auto withoutMenu = windows();
    for (const std::vector<xcb_keysym_t>& keys :
         {std::vector<xcb_keysym_t>{XK_Escape}, {XK_Down, XK_Escape}}) {
        // Elsewhere each time, for two clicks at one place are a double click.
        const QPoint place(200 + 50 * static_cast<int>(keys.size()), 28);
        session.pointer().click(session.panel()->topLeft() + place, Pointer::Button::Right);
        ASSERT_TRUE(waitUntil([&] { return windows() > withoutMenu; }));
        for (const xcb_keysym_t key : keys) {
            session.keyboard().press({key});
        }
        ASSERT_TRUE(waitUntil([&] { return windows() == withoutMenu; }));
        EXPECT_TRUE(waitUntil([this] { return session.desktop().isKeyboardGrabbed(); }));
        EXPECT_EQ(session.desktop().inputFocus(), client->id());
    }
    session.keyboard().type("q");
    EXPECT_TRUE(session.waitForPanelHeight(LauncherSession::noResultsPanelHeight));
    EXPECT_EQ(client->typed(), "");
}

TEST_F(KeyboardTest, VolumeAndMediaKeysDoTheirWorkBesideThePanel) {
    start();
    ForeignHotKey volume(session.display(), XF86XK_AudioRaiseVolume, 0);
    ForeignHotKey play(session.display(), XF86XK_AudioPlay, 0);
    ASSERT_TRUE(volume.isHeld() && play.isHeld());
    session.summon();
    session.keyboard().type("zi");
    for (int step = 1; step <= 3; ++step) {
        session.keyboard().press({XF86XK_AudioRaiseVolume});
        EXPECT_TRUE(waitUntil([&] { return volume.presses() == step; })) << step;
    }
    session.keyboard().press({XF86XK_AudioPlay});
    session.search("nc", 1);
    EXPECT_TRUE(waitUntil([&] { return play.presses() == 1; }));
    EXPECT_EQ(volume.presses(), 3);
    EXPECT_TRUE(session.desktop().isKeyboardGrabbed());
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_EQ(client->typed(), "");
}

TEST_F(KeyboardTest, TheScreenLockKeyGivesTheKeyboardToTheLock) {
    start();
    ForeignHotKey lock(session.display(), XF86XK_ScreenSaver, 0);
    ASSERT_TRUE(lock.isHeld());
    session.summon();
    session.keyboard().press({XF86XK_ScreenSaver});
    EXPECT_TRUE(waitUntil([&] { return lock.presses() == 1; }));
    EXPECT_TRUE(session.waitForDismissal());
    // Nothing of the panel's retries is left that would compete with the lock.
    const ForeignGrab screenLock(session.display());
}

TEST_F(KeyboardTest, WhatIsTypedAfterAVolumeKeyStaysWithThePanel) {
    start();
    ForeignHotKey volume(session.display(), XF86XK_AudioRaiseVolume, 0);
    session.summon();
    session.signal(SIGSTOP);
    session.keyboard().type("z");
    session.keyboard().press({XF86XK_AudioRaiseVolume});
    session.keyboard().type("inc");
    session.signal(SIGCONT);
    EXPECT_TRUE(session.waitForPanelHeight(panelHeight(1)));
    EXPECT_TRUE(waitUntil([&] { return volume.presses() == 1; }));
    session.keyboard().press({XK_Return});
    EXPECT_THAT(session.waitForRuns(zinc, 1), SizeIs(1));
    EXPECT_EQ(client->typed(), "");
}

TEST_F(KeyboardTest, ChordsOfTheDesktopDismissThePanelAndDoTheirWork) {
    start();
    ForeignHotKey lock(session.display(), XK_l, XCB_MOD_MASK_4);
    ForeignHotKey terminal(session.display(), XK_t, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1);
    ASSERT_TRUE(lock.isHeld() && terminal.isHeld());
    session.summon();
    session.search("zi", 1);
    pressBesideThePanel({XK_Super_L}, XK_l);
    EXPECT_TRUE(waitUntil([&] { return lock.presses() == 1; }));

    session.summon();
    pressBesideThePanel({XK_Alt_L, XK_Control_L}, XK_t);
    EXPECT_TRUE(waitUntil([&] { return terminal.presses() == 1; }));

    session.summon();
    EXPECT_EQ(session.panel()->height(), LauncherSession::emptyPanelHeight);
    EXPECT_EQ(client->typed(), "");
    EXPECT_EQ(lock.presses(), 1);
}

TEST_F(KeyboardTest, AChordOfTheDesktopMayBeLetGoInAnyOrderAndWithTheLocksOn) {
    start();
    ForeignHotKey lock(session.display(), XK_l, XCB_MOD_MASK_4 | XCB_MOD_MASK_2);
    ASSERT_TRUE(lock.isHeld());
    session.keyboard().press({XK_Num_Lock});
    session.summon();
    session.keyboard().hold(XK_Super_L);
    session.keyboard().hold(XK_l);
    session.keyboard().release(XK_Super_L);
    session.keyboard().release(XK_l);
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(waitUntil([&] { return lock.presses() == 1; }));
    EXPECT_TRUE(waitUntil([this] { return !session.desktop().isAnyKeyDown(); }));
    EXPECT_EQ(client->typed(), "");
}

TEST_F(KeyboardTest, AHeldChordActsOnceWhenItIsLetGo) {
    start();
    ForeignHotKey lock(session.display(), XK_l, XCB_MOD_MASK_4);
    ASSERT_TRUE(lock.isHeld());
    session.summon();
    session.keyboard().hold(XK_Super_L);
    holdAndRepeat(XK_l);
    session.keyboard().release(XK_l);
    EXPECT_TRUE(session.waitForDismissal());
    session.keyboard().release(XK_Super_L);
    session.summon();
    EXPECT_EQ(lock.presses(), 1);
}

TEST_F(KeyboardTest, ClosingIsMeantForThePanelAndNotForTheWindowBehindIt) {
    start();
    session.summon();
    session.keyboard().hold(XK_Alt_L);
    holdAndRepeat(XK_F4);
    session.keyboard().release(XK_F4);
    session.keyboard().release(XK_Alt_L);
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_EQ(session.desktop().activeWindow(), client->id());
    expectTypingReachesTheClient("still there");
}

TEST_F(KeyboardTest, ModifiersOfTheHotKeyThatAreStillDownMakeNoChord) {
    start();
    session.keyboard().hold(XK_Alt_L);
    session.keyboard().hold(XK_Super_L);
    session.keyboard().press({XK_space});
    ASSERT_TRUE(waitUntil([this] { return session.desktop().isKeyboardGrabbed(); }));
    session.search("zinc", 1);
    session.keyboard().release(XK_Super_L);
    session.keyboard().release(XK_Alt_L);
    session.keyboard().press({XK_Return});
    EXPECT_THAT(session.waitForRuns(zinc, 1), SizeIs(1));
}

TEST_F(KeyboardTest, TheWindowManagersOwnChordsWork) {
    start();
    const ClientWindow other(session.display(), QRect(500, 640, 400, 120));
    // The first keys make the window manager read the keyboard anew and grab its chords again.
    EXPECT_TRUE(waitUntil([this] {
        session.keyboard().press({XK_Super_L, XK_F2});
        return workspace() == 1;
    }));
    session.keyboard().press({XK_Super_L, XK_F1});
    EXPECT_TRUE(waitUntil([&] { return session.desktop().activeWindow() == other.id(); }));

    session.summon();
    session.keyboard().hold(XK_Alt_L);
    session.keyboard().press({XK_Tab});
    // The window manager shows the windows to choose from until Alt is let go.
    EXPECT_TRUE(waitUntil([this] {
        return !session.panel() && !session.desktop().overrideRedirectWindows().empty();
    }));
    session.keyboard().release(XK_Alt_L);
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(waitUntil([this] { return session.desktop().activeWindow() == client->id(); }));

    session.summon();
    pressBesideThePanel({XK_Control_L, XK_Alt_L}, XK_Right);
    EXPECT_TRUE(waitUntil([this] { return workspace() == 1; }));
}

TEST_F(KeyboardTest, FastTypingArrivesCompleteAndInOrder) {
    QByteArray text;
    for (int index = 0; text.size() < 200; ++index) {
        text.append(static_cast<char>('a' + index * index * 7 % 26));
        text.append(static_cast<char>('a' + index * 11 % 26));
    }
    // Of two that match, the second is launched, which teaches the launcher the whole query.
    session.addApplication(QStringLiteral("first"), QString::fromLatin1(text));
    session.addApplication(QStringLiteral("second"), QString::fromLatin1(text + " second"));
    start();
    session.summon();
    session.search(text, 2);
    session.keyboard().press({XK_Down});
    session.keyboard().press({XK_Return});
    EXPECT_THAT(session.waitForRuns(QStringLiteral("second"), 1), SizeIs(1));
    const auto learned = session.waitForDataFile(QStringLiteral("abbreviations.json"));
    ASSERT_TRUE(learned);
    EXPECT_EQ(learned->keys(), QStringList{QString::fromLatin1(text)});
    EXPECT_EQ(client->typed(), "");
}

TEST_F(KeyboardTest, WhatIsTypedAfterTheKeyThatDismissesGoesToTheApplicationInFront) {
    start();
    session.summon();
    session.signal(SIGSTOP);
    session.keyboard().type("zi");
    session.keyboard().press({XK_Return});
    session.keyboard().type("After");
    session.signal(SIGCONT);
    EXPECT_THAT(session.waitForRuns(zinc, 1), SizeIs(1));
    EXPECT_TRUE(waitUntil([this] { return client->typed() == "After"; })) << client->typed().data();

    const std::function<void()> dismissals[] = {[this] { session.keyboard().press({XK_Escape}); },
                                                [this] { session.pressDefaultHotKey(); }};
    for (const auto& dismiss : dismissals) {
        session.summon();
        session.signal(SIGSTOP);
        dismiss();
        session.keyboard().type("wards");
        session.signal(SIGCONT);
        EXPECT_TRUE(session.waitForDismissal());
        EXPECT_TRUE(waitUntil([this] { return client->typed().endsWith("wards"); }))
            << client->typed().data();
        session.keyboard().type(" ");
    }
    EXPECT_TRUE(waitUntil([this] { return client->typed() == "Afterwards wards "; }));
    session.summon();
    EXPECT_EQ(session.panel()->height(), LauncherSession::emptyPanelHeight);
}

} // namespace
} // namespace quorvantel
