#include "e2e/LauncherSession.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;

constexpr std::uint16_t altAndSuper = XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

void expectCleanEnd(LauncherSession& session) {
    const std::optional<ChildProcess::Exit> exit = session.terminate();
    ASSERT_TRUE(exit);
    EXPECT_FALSE(exit->crashed);
    EXPECT_EQ(exit->status, 0);
}

TEST(HotKeyTest, TerminationFreesTheHotKey) {
    LauncherSession session;
    session.start();
    EXPECT_FALSE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());

    expectCleanEnd(session);
    EXPECT_TRUE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());
}

TEST(HotKeyTest, TerminationWithTheShownPanelGivesTheKeyboardBack) {
    LauncherSession session;
    session.start();
    session.summon();
    expectCleanEnd(session);
    EXPECT_TRUE(session.waitForDismissal());
}

TEST(HotKeyTest, AHotKeyHeldElsewhereIsLoggedAndTheLauncherStays) {
    LauncherSession session;
    const ForeignHotKey other(session.display(), XK_space, altAndSuper);
    session.start("Quorvantel: hotkey registration failed: "
                  "RegisterEventHotKey failed with OSStatus 10.");
    EXPECT_EQ(session.output().count("registration failed"), 1);
    expectCleanEnd(session);
}

} // namespace
} // namespace quorvantel
