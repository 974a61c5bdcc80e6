#include "platform/linux/x11/Strut.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

// A small screen on the left and a larger one on the right, their tops aligned.
const QRect left(0, 0, 1440, 900);
const QRect right(1440, 0, 1920, 1080);
const QSize desktop(3360, 1080);

TEST(StrutTest, ABarTakesRoomFromItsOwnScreenOnly) {
    const std::vector<Strut> topOfRight{{Qt::TopEdge, 30, 1440, 3359}};
    EXPECT_EQ(unreservedPart(left, desktop, topOfRight), left);
    EXPECT_EQ(unreservedPart(right, desktop, topOfRight), QRect(1440, 30, 1920, 1050));

    const std::vector<Strut> rightDock{{Qt::RightEdge, 64, 0, 1079}};
    EXPECT_EQ(unreservedPart(left, desktop, rightDock), left);
    EXPECT_EQ(unreservedPart(right, desktop, rightDock), QRect(1440, 0, 1856, 1080));
}

TEST(StrutTest, ABarBetweenTwoScreensReachesAcrossTheOuterOne) {
    // A dock at the left edge of the right screen has to reserve the left screen with it.
    const std::vector<Strut> dock{{Qt::LeftEdge, 1440 + 48, 0, 1079}};
    EXPECT_EQ(unreservedPart(left, desktop, dock), left);
    EXPECT_EQ(unreservedPart(right, desktop, dock), QRect(1488, 0, 1872, 1080));

    // The left screen ends above the desktop's lower edge, from which depths are counted.
    const std::vector<Strut> bottomOfLeft{{Qt::BottomEdge, 180 + 40, 0, 1439}};
    EXPECT_EQ(unreservedPart(left, desktop, bottomOfLeft), QRect(0, 0, 1440, 860));
    EXPECT_EQ(unreservedPart(right, desktop, bottomOfLeft), right);
}

TEST(StrutTest, SeveralBarsAddUpAndNonsenseLeavesTheScreen) {
    const std::vector<Strut> bars{
        {Qt::TopEdge, 30, 0, 1439}, {Qt::TopEdge, 20, 0, 700}, {Qt::BottomEdge, 220, 0, 1439}};
    EXPECT_EQ(unreservedPart(left, desktop, bars), QRect(0, 30, 1440, 830));
    const std::vector<Strut> everything{{Qt::TopEdge, 600, 0, 1439},
                                        {Qt::BottomEdge, 600, 0, 1439}};
    EXPECT_EQ(unreservedPart(left, desktop, everything), left);
}

} // namespace
} // namespace quorvantel::platform
