#include "e2e/LauncherSession.h"
#include "support/ForeignHotKey.h"
#include "support/SessionManager.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;

class SessionEndTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Not before, as the window manager would join as well.
        qputenv("SESSION_MANAGER", manager.address());
        session.start();
        ASSERT_TRUE(waitUntil([this] { return manager.saves() == 1; }));
    }

    void beginLogout() {
        const int earlier = manager.saves();
        manager.beginLogout();
        EXPECT_TRUE(waitUntil([&] { return manager.saves() == earlier + 1; }));
        EXPECT_FALSE(manager.hasHeldUpLogout());
        EXPECT_TRUE(manager.isNeverRestarted());
    }

    void expectOrderlyEnd(const std::optional<ChildProcess::Exit>& exit) {
        ASSERT_TRUE(exit) << "it stays";
        EXPECT_FALSE(exit->crashed) << exit->status;
        EXPECT_EQ(exit->status, 0);
        EXPECT_TRUE(waitUntil([this] { return !manager.hasClient(); }));
        EXPECT_TRUE(session.waitForDismissal());
        constexpr std::uint16_t altAndSuper = XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
        EXPECT_TRUE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());
    }

    SessionManager manager;
    LauncherSession session;
};

TEST_F(SessionEndTest, ACancelledLogoutChangesNothingAndACompletedOneEndsTheShownLauncher) {
    session.summon();
    beginLogout();
    manager.cancelLogout();
    EXPECT_TRUE(session.panel());
    session.pressDefaultHotKey();
    EXPECT_TRUE(session.waitForDismissal());
    session.summon();

    beginLogout();
    manager.completeLogout();
    expectOrderlyEnd(session.waitForExit());
    EXPECT_EQ(session.output().count('\n'), 1) << session.output().toStdString();
}

TEST_F(SessionEndTest, NeitherARecordingWindowNorAManagerInAHurryKeepsItFromEnding) {
    session.summon();
    session.keyboard().press({XK_Super_L, XK_comma});
    ASSERT_TRUE(
        waitUntil([this] { return session.desktop().activeTitle() == "Quorvantel Settings"; }));
    ASSERT_TRUE(session.waitForDismissal());
    session.keyboard().press({XK_Tab});
    session.keyboard().press({XK_space});
    ASSERT_TRUE(waitUntil([this] { return session.desktop().isKeyboardGrabbed(); }));
    beginLogout();
    manager.completeLogout();
    manager.crash();
    expectOrderlyEnd(session.waitForExit());
}

TEST_F(SessionEndTest, ACrashOfTheSessionManagerLeavesTheLauncherAtItsWork) {
    manager.crash();
    session.summon();
    EXPECT_TRUE(waitUntil([this] {
        return session.output().endsWith("\nQuorvantel: the session manager is gone\n");
    })) << session.output().toStdString();
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(session.waitForRest()) << "the loss keeps it busy";
    expectOrderlyEnd(session.terminate());
}

} // namespace
} // namespace quorvantel
