#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace quorvantel {
namespace {

using ::testing::SizeIs;
using namespace ::quorvantel::testing;

const QString zinc = QStringLiteral("zinc");

/// Another client that keeps the whole keyboard to itself, as an open menu does.
class ForeignGrab {
public:
    explicit ForeignGrab(const QByteArray& display) : m_connection(display) {
        if (!waitUntil([this] { return grab(); })) {
            throw std::runtime_error("the keyboard cannot be grabbed");
        }
    }

    ~ForeignGrab() {
        xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
        m_connection.synchronize();
    }

private:
    bool grab() {
        const XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            m_connection.get(),
            xcb_grab_keyboard(m_connection.get(), 0, m_connection.root(), XCB_CURRENT_TIME,
                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }

    XConnection m_connection;
};

class KeyboardTest : public ::testing::Test {
protected:
    KeyboardTest() { session.addApplication(zinc, QStringLiteral("Zinc")); }

    void start() {
        session.start();
        client.emplace(session.display(), QRect(40, 640, 400, 120));
    }

    /// Summons the panel in such a way that another client has taken the keyboard when the launcher
    /// comes to ask for it.
    ForeignGrab summonAgainstAGrab() {
        session.signal(SIGSTOP);
        session.pressDefaultHotKey();
        return ForeignGrab(session.display());
    }

    void continueToShow() {
        session.signal(SIGCONT);
        ASSERT_TRUE(waitUntil([this] { return session.panel().has_value(); }));
    }

    void expectTypingReachesTheClient(const QByteArray& text) {
        session.keyboard().type(text);
        EXPECT_TRUE(waitUntil([&] { return client->typed().endsWith(text); }));
    }

    LauncherSession session;
    std::optional<ClientWindow> client;
};

TEST_F(KeyboardTest, TheGrabIsTriedAgainWhileAnotherClientHoldsTheKeyboard) {
    start();
    {
        const ForeignGrab menu = summonAgainstAGrab();
        continueToShow();
    }
    EXPECT_TRUE(waitUntil([this] { return session.desktop().isKeyboardGrabbed(); }));
    EXPECT_EQ(session.desktop().inputFocus(), client->id());
    session.search("zinc", 1);
}

TEST_F(KeyboardTest, AKeyboardThatStaysGrabbedMakesThePanelTakeTheFocusAndReturnIt) {
    start();
    {
        const ForeignGrab menu = summonAgainstAGrab();
        continueToShow();
        EXPECT_TRUE(waitUntil([this] { return session.desktop().inputFocus() != client->id(); }));
    }
    session.search("zinc", 1);
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(waitUntil([this] { return session.desktop().inputFocus() == client->id(); }));
    EXPECT_TRUE(waitUntil([this] { return session.desktop().activeWindow() == client->id(); }));
    expectTypingReachesTheClient("after");
    EXPECT_EQ(client->typed(), "after");
}

TEST_F(KeyboardTest, VolumeAndMediaKeysDoTheirWorkBesideThePanel) {
    start();
    ForeignHotKey volume(session.display(), XF86XK_AudioRaiseVolume, 0);
    ForeignHotKey play(session.display(), XF86XK_AudioPlay, 0);
    ASSERT_TRUE(volume.isHeld() && play.isHeld());
    session.summon();
    session.keyboard().type("zi");
    for (int step = 0; step < 3; ++step) {
        session.keyboard().press({XF86XK_AudioRaiseVolume});
    }
    session.keyboard().press({XF86XK_AudioPlay});
    session.search("nc", 1);

    EXPECT_TRUE(waitUntil([&] { return volume.presses() == 3 && play.presses() == 1; }))
        << volume.presses() << " and " << play.presses();
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
    expectTypingReachesTheClient("");
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

    session.summon();
    session.signal(SIGSTOP);
    session.keyboard().press({XK_Escape});
    session.keyboard().type("wards");
    session.signal(SIGCONT);
    EXPECT_TRUE(waitUntil([this] { return client->typed() == "Afterwards"; }))
        << client->typed().data();
    session.summon();
    EXPECT_EQ(session.panel()->height(), LauncherSession::emptyPanelHeight);
}

} // namespace
} // namespace quorvantel
