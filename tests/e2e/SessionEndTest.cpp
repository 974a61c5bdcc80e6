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

    void openSettings() {
        session.summon();
        session.keyboard().press({XK_Super_L, XK_comma});
        ASSERT_TRUE(
            waitUntil([this] { return session.desktop().activeTitle() == "Quorvantel Settings"; }));
        ASSERT_TRUE(session.waitForDismissal());
    }

    void logOut() {
        manager.beginLogout();
        EXPECT_TRUE(waitUntil([this] { return manager.saves() == 2; }));
        EXPECT_FALSE(manager.hasHeldUpLogout());
        EXPECT_EQ(manager.restartStyle(), SessionManager::RestartStyle::Never);
        manager.completeLogout();

        const auto exit = session.waitForExit();
        ASSERT_TRUE(exit) << "it stays after the logout";
        EXPECT_FALSE(exit->crashed) << exit->status;
        EXPECT_EQ(exit->status, 0);
        EXPECT_TRUE(waitUntil([this] { return !manager.hasClient(); }));
    }

    SessionManager manager;
    LauncherSession session;
};

TEST_F(SessionEndTest, TheLogoutEndsTheShownLauncherInOrder) {
    constexpr std::uint16_t altAndSuper = XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
    session.summon();
    logOut();
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());
    EXPECT_EQ(session.output().count('\n'), 1) << session.output().toStdString();
}

TEST_F(SessionEndTest, ARecordingSettingsWindowDoesNotHoldUpTheLogout) {
    openSettings();
    session.keyboard().press({XK_Tab});
    session.keyboard().press({XK_space});
    ASSERT_TRUE(waitUntil([this] { return session.desktop().isKeyboardGrabbed(); }));
    logOut();
    EXPECT_TRUE(waitUntil([this] { return !session.desktop().isKeyboardGrabbed(); }));
}

TEST_F(SessionEndTest, AManagerThatWaitsForNobodyIsObeyed) {
    manager.beginLogout();
    EXPECT_TRUE(waitUntil([this] { return manager.saves() == 2; }));
    manager.completeLogout();
    manager.crash();
    const auto exit = session.waitForExit();
    ASSERT_TRUE(exit) << "it stays after the logout";
    EXPECT_FALSE(exit->crashed) << exit->status;
    EXPECT_EQ(exit->status, 0);
}

TEST_F(SessionEndTest, ACancelledLogoutLeavesTheLauncherAsItWas) {
    session.summon();
    manager.beginLogout();
    EXPECT_TRUE(waitUntil([this] { return manager.saves() == 2; }));
    manager.cancelLogout();
    EXPECT_TRUE(session.panel());
    session.pressDefaultHotKey();
    EXPECT_TRUE(session.waitForDismissal());
    session.summon();
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

    const auto exit = session.terminate();
    ASSERT_TRUE(exit) << "it hangs without the session manager";
    EXPECT_FALSE(exit->crashed) << exit->status;
    EXPECT_EQ(exit->status, 0);
}

} // namespace
} // namespace quorvantel
