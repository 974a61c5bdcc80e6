#include "platform/macos/ScreenPlane.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

// The second screen stands on the right of the first, its upper edge 100 points higher.
const Screen first{{QStringLiteral("first")}, {0, 0, 1440, 900}, {0, 0, 1440, 875}};
const Screen second{{QStringLiteral("second")}, {1440, -80, 1920, 1080}, {1440, -80, 1920, 1080}};

TEST(ScreenPlane, FindsTheScreenOfTheMouse) {
    const std::vector<Screen> screens{first, second};
    EXPECT_EQ(screenAt({0, 900}, screens), first) << "in the upper left corner";
    EXPECT_EQ(screenAt({1439.5, 0.5}, screens), first) << "in the lower right corner";
    EXPECT_EQ(screenAt({1440, 450}, screens), second) << "on the border";
    EXPECT_EQ(screenAt({3359, 1000}, screens), second);
    EXPECT_EQ(screenAt({700, 0}, screens), std::nullopt) << "below the first";
    EXPECT_EQ(screenAt({700, 901}, screens), std::nullopt);
}

TEST(ScreenPlane, TurnsPlacesOver) {
    EXPECT_EQ(turnedOver(QRectF(400, 664, 640, 56), 900), QRectF(400, 180, 640, 56));
    EXPECT_EQ(turnedOver(second.frame, 900), QRectF(1440, -100, 1920, 1080));
    EXPECT_EQ(turnedOver(QPointF(12.5, 900), 900), QPointF(12.5, 0));
    EXPECT_EQ(frameOnScreen({400, 180, 640, 56}, first), QRectF(400, 664, 640, 56));
    EXPECT_EQ(frameOnScreen({10, -5, 640, 467}, second), QRectF(1450, 538, 640, 467));
}

} // namespace
} // namespace quorvantel::platform
