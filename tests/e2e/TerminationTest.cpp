#include "e2e/LauncherSession.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;

constexpr std::uint16_t altAndSuper = XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

class SignalTest : public ::testing::TestWithParam<int> {};

TEST_P(SignalTest, EndsTheShownLauncherInOrder) {
    LauncherSession session;
    session.start();
    session.summon();
    session.signal(GetParam());

    const auto exit = session.waitForExit();
    ASSERT_TRUE(exit);
    EXPECT_FALSE(exit->crashed);
    EXPECT_EQ(exit->status, 0);
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());
}

TEST(TerminationTest, AHotKeyHeldElsewhereIsLoggedAndTheLauncherStays) {
    LauncherSession session;
    const ForeignHotKey other(session.display(), XK_space, altAndSuper);
    session.start("Quorvantel: hotkey registration failed: "
                  "RegisterEventHotKey failed with OSStatus 10.");
    EXPECT_EQ(session.output().count("registration failed"), 1);
    const auto exit = session.terminate();
    EXPECT_TRUE(exit && !exit->crashed && exit->status == 0);
}

TEST(TerminationTest, DisplaysThatAreNotThereAreOneLineAndAFailure) {
    const LauncherSession session;
    ChildProcess::Launch launch = session.launch();
    launch.environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-997"));
    launch.environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":997"));
    const auto exit = ChildProcess(launch).waitForExit(patience);
    ASSERT_TRUE(exit);
    EXPECT_FALSE(exit->crashed);
    EXPECT_EQ(exit->status, 1);
    EXPECT_TRUE(session.output().startsWith("Quorvantel: no display server answers at "));
    EXPECT_TRUE(session.output().endsWith("DISPLAY=:997\n")) << session.output().toStdString();
    EXPECT_EQ(session.output().count('\n'), 1);
}

TEST(TerminationTest, NoTerminalStopsTheLauncherThatTheKeyboardWaitsFor) {
    LauncherSession session;
    session.start();
    for (const int stop : {SIGTSTP, SIGTTIN, SIGTTOU}) {
        session.signal(stop);
    }
    session.summon();
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
}

TEST(TerminationTest, TheLossOfTheDisplayEndsTheLauncherWithoutACrash) {
    LauncherSession session;
    session.start();
    session.summon();
    // Listing results draws much, which the loss interrupts.
    session.keyboard().type("t");
    session.signalDisplay(SIGKILL);

    const auto exit = session.waitForExit();
    ASSERT_TRUE(exit) << "it hangs without a display";
    EXPECT_FALSE(exit->crashed) << exit->status;
    // Besides how to summon it, the loss alone; nothing about what was being drawn.
    EXPECT_TRUE(session.output().endsWith("\nQuorvantel: the display server is gone\n"));
    EXPECT_LE(session.output().count('\n'), 2) << session.output().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Each, SignalTest, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

} // namespace
} // namespace quorvantel
