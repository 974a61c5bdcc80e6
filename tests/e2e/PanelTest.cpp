#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/Monitors.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using ::testing::SizeIs;
using namespace ::quorvantel::testing;

const QString zinc = QStringLiteral("zinc");

class PanelTest : public ::testing::Test {
protected:
    PanelTest() { session.addApplication(zinc, QStringLiteral("Zinc")); }

    void expectInFront(const ClientWindow& client, const char* when) {
        EXPECT_EQ(session.desktop().activeWindow(), client.id()) << when;
        EXPECT_EQ(session.desktop().inputFocus(), client.id()) << when;
    }

    LauncherSession session;
    // Below the place of the panel, at the bottom of the display.
    const QRect clientGeometry{40, 640, 400, 120};
};

TEST_F(PanelTest, TheHotKeyAndEscapeDismissAndTheNextShowingIsEmpty) {
    session.start();
    EXPECT_FALSE(session.panel()) << "the start shows nothing";
    session.summon();
    session.pressDefaultHotKey();
    EXPECT_TRUE(session.waitForDismissal());

    session.summon();
    session.search("zinc", 1);
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());

    session.summon();
    EXPECT_TRUE(session.waitForPanelHeight(LauncherSession::emptyPanelHeight));
    // With anything left of the old query, the new one would find nothing.
    session.search("zinc", 1);
    EXPECT_THAT(session.waitForRuns(zinc, 0), SizeIs(0));
}

TEST_F(PanelTest, AClickInAnotherApplicationDismissesAndReachesIt) {
    session.start();
    ClientWindow client(session.display(), clientGeometry);
    session.summon();

    session.pointer().click(session.panel()->center());
    session.search("zinc", 1); // The click in the panel itself has not dismissed it.
    EXPECT_EQ(client.clicks(), 0);

    session.pointer().click(session.desktop().geometry(client.id())->center());
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_TRUE(waitUntil([&client] { return client.clicks() == 1; }));
}

TEST_F(PanelTest, TheApplicationInFrontKeepsTheFocus) {
    session.start();
    ClientWindow client(session.display(), clientGeometry);
    session.keyboard().type("before ");
    EXPECT_TRUE(waitUntil([&client] { return client.typed() == "before "; }));

    session.summon();
    session.search("zinc", 1);
    expectInFront(client, "while the panel is shown");

    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    expectInFront(client, "after the panel");
    session.keyboard().type("after");
    EXPECT_TRUE(waitUntil([&client] { return client.typed().endsWith("after"); }));
    EXPECT_EQ(client.typed(), "before after") << "neither the hotkey nor the query reached it";
}

TEST_F(PanelTest, ThePanelComesUpOnTheMonitorUnderThePointer) {
    setMonitors(session.display(), {QRect(0, 0, 440, 800), QRect(440, 0, 840, 800)});
    session.pointer().moveTo({1000, 700});
    session.start();
    session.summon();
    // Centred, its upper edge a fifth of the height below that of the monitor.
    EXPECT_EQ(session.panel(), QRect(440 + 420 - 320, 160, 640, 56));

    session.search("zinc", 1);
    EXPECT_EQ(session.panel()->topLeft(), QPoint(540, 160)) << "the panel grows downward";
}

} // namespace
} // namespace quorvantel
