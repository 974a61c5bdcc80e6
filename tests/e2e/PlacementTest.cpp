#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/Monitors.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;

const QString zinc = QStringLiteral("zinc");

class PlacementTest : public ::testing::Test {
protected:
    PlacementTest() { session.addApplication(zinc, QStringLiteral("Zinc")); }
    ~PlacementTest() override {
        qunsetenv("QT_SCALE_FACTOR");
        qunsetenv("QT_SCREEN_SCALE_FACTORS");
    }

    void dismiss() {
        session.keyboard().press({XK_Escape});
        ASSERT_TRUE(session.waitForDismissal());
    }

    /// Drags the panel by its search symbol or another place, in two steps as a hand would.
    void drag(QPoint distance, QPoint place = {30, 28}) {
        const QPoint grip = session.panel()->topLeft() + place;
        session.pointer().moveTo(grip);
        session.pointer().hold();
        session.pointer().moveTo(grip + distance / 2);
        session.pointer().moveTo(grip + distance);
        session.pointer().release();
    }

    bool waitForPanel(const QRect& expected) {
        const bool isThere = waitUntil([&] { return session.panel() == expected; });
        if (!isThere && session.panel()) {
            const QRect actual = *session.panel();
            ADD_FAILURE() << "the panel is at " << actual.x() << ' ' << actual.y() << ' '
                          << actual.width() << 'x' << actual.height();
        }
        return isThere;
    }

    LauncherSession session;
};

TEST_F(PlacementTest, HangsAFifthBelowTheTopOfTheMonitorUnderThePointerAndGrowsDownward) {
    setMonitors(session.display(), {QRect(0, 0, 440, 800), QRect(440, 0, 840, 800)});
    session.pointer().moveTo({1000, 700});
    session.start();
    session.summon();
    EXPECT_TRUE(waitForPanel({540, 160, 640, 56}));
    session.search("zinc", 1);
    EXPECT_TRUE(waitForPanel({540, 160, 640, 117}));
}

TEST_F(PlacementTest, StaysWhereItWasDraggedUntilThatScreenIsGone) {
    setMonitors(session.display(), {QRect(0, 0, 640, 700), QRect(640, 0, 640, 720)});
    session.start();
    session.pointer().moveTo({100, 100});
    session.summon();
    ASSERT_TRUE(waitForPanel({0, 140, 640, 56}));
    drag({640, 140});
    EXPECT_TRUE(waitForPanel({640, 280, 640, 56}));
    session.search("zinc", 1);
    EXPECT_TRUE(waitForPanel({640, 280, 640, 117}));
    drag({0, 60}, {320, 114});
    EXPECT_TRUE(waitForPanel({640, 340, 640, 117})) << "by the padding below the row";
    dismiss();

    session.pointer().moveTo({100, 100});
    session.summon();
    EXPECT_TRUE(waitForPanel({640, 340, 640, 56})) << "although the mouse is on the other screen";
    dismiss();

    session.summon();
    session.search("zinc", 1);
    setMonitors(session.display(), {QRect(0, 0, 640, 700)});
    EXPECT_TRUE(waitForPanel({0, 340, 640, 117})) << "clamped into the screen that is left";
    dismiss();
    session.summon();
    EXPECT_TRUE(waitForPanel({0, 340, 640, 56}));
}

TEST_F(PlacementTest, StaysOnItsScreenWhenAnotherGoesAlthoughTheMouseHasLeftIt) {
    setMonitors(session.display(),
                {QRect(0, 0, 640, 700), QRect(640, 0, 640, 400), QRect(640, 400, 640, 320)});
    session.start();
    session.pointer().moveTo({100, 100});
    session.summon();
    ASSERT_TRUE(waitForPanel({0, 140, 640, 56}));
    session.pointer().moveTo({1000, 100});
    removeLastMonitor(session.display(), 3);
    session.search("zinc", 1);
    EXPECT_TRUE(waitForPanel({0, 140, 640, 117}));
}

TEST_F(PlacementTest, FollowsTheRoomThatABarTakesAndAScreenGains) {
    setMonitors(session.display(), {QRect(0, 0, 800, 600)});
    session.start();
    const ClientWindow bar(session.display(), QRect(0, 500, 100, 20));
    session.summon();
    ASSERT_TRUE(waitForPanel({80, 120, 640, 56}));
    const std::array<std::uint32_t, 12> topmost{0, 0, 100, 0, 0, 0, 0, 0, 0, 799, 0, 0};
    const XConnection& connection = session.connection();
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, bar.id(),
                        connection.atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL, 32,
                        topmost.size(), topmost.data());
    connection.synchronize();
    EXPECT_TRUE(waitForPanel({80, 200, 640, 56}));
    setMonitors(session.display(), {QRect(0, 0, 1200, 800)});
    EXPECT_TRUE(waitForPanel({280, 240, 640, 56}));
}

TEST_F(PlacementTest, OnlyTheHeldLeftButtonDrags) {
    setMonitors(session.display(), {QRect(0, 0, 1200, 800)});
    session.start();
    session.summon();
    const QPoint grip = session.panel()->topLeft() + QPoint(30, 28);
    session.pointer().moveTo(grip);
    session.pointer().hold();
    session.pointer().moveTo(grip + QPoint(0, 40));
    EXPECT_TRUE(waitForPanel({280, 200, 640, 56}));
    dismiss();
    session.pointer().release();

    session.summon();
    session.pointer().moveTo(session.panel()->topLeft() + QPoint(30, 28));
    session.pointer().moveTo(session.panel()->topLeft() + QPoint(90, 20));
    session.search("zinc", 1);
    EXPECT_TRUE(waitForPanel({280, 200, 640, 117}));
}

TEST_F(PlacementTest, MeasuresInPointsOnAScreenOfTwicePixels) {
    qputenv("QT_SCALE_FACTOR", "2");
    setMonitors(session.display(), {QRect(0, 0, 1280, 720)});
    session.start();
    session.pressDefaultHotKey();
    const auto isPanel = [this](xcb_window_t window) {
        return session.desktop().geometry(window) == QRect(0, 144, 1280, 112);
    };
    EXPECT_TRUE(waitUntil(
        [&] { return std::ranges::any_of(session.desktop().overrideRedirectWindows(), isPanel); }));
}

TEST_F(PlacementTest, FillsThePanelOnAScreenOfAnotherScale) {
    qputenv("QT_SCREEN_SCALE_FACTORS", "1;2");
    setMonitors(session.display(), {QRect(0, 0, 640, 700), QRect(640, 0, 640, 720)});
    session.start();
    session.pointer().moveTo({1000, 600});
    session.pressDefaultHotKey();
    const auto pixel = [this](QPoint point) {
        return session.desktop().screenshot(QRect(point, QSize(1, 1))).pixel(0, 0);
    };
    const QRgb desktop = pixel({1200, 600});
    EXPECT_TRUE(waitUntil([&] { return pixel({1200, 230}) != desktop; })) << "its lower half";
    EXPECT_EQ(pixel({1200, 230}), pixel({1200, 170}));
}

} // namespace
} // namespace quorvantel
