#include "panel/PanelPlacement.h"

#include <gtest/gtest.h>

void PrintTo(const QRectF& rectangle, std::ostream* stream) {
    *stream << '(' << rectangle.x() << ", " << rectangle.y() << ", " << rectangle.width() << ", "
            << rectangle.height() << ')';
}

namespace quorvantel {
namespace {

using platform::Screen;

const Screen laptop{{0, 0, 1440, 900}, {0, 0, 1440, 900}};
const Screen external{{1440, 0, 1920, 1080}, {1440, 40, 1920, 1000}};
const std::vector<Screen> both{laptop, external};

TEST(PanelPlacementTest, GrowsDownwardAndComesBackToItsAnchor) {
    PanelPlacement placement;
    EXPECT_EQ(placement.show({laptop}, laptop), QRectF(400, 664, 640, 56));
    EXPECT_EQ(placement.resize(467, laptop), QRectF(400, 253, 640, 467));
    // Taller than the room below the anchor: pulled up; taller than the screen: cut as well.
    EXPECT_EQ(placement.resize(800, laptop), QRectF(400, 0, 640, 800));
    EXPECT_EQ(placement.resize(2000, laptop), QRectF(400, 0, 640, 900));
    EXPECT_EQ(placement.resize(56, laptop), QRectF(400, 664, 640, 56));
    const Screen narrow{{100, 0, 600, 900}, {100, 0, 600, 900}};
    EXPECT_EQ(placement.show({narrow}, narrow).x(), 100);
}

TEST(PanelPlacementTest, TellsTheUsersDragsFromItsOwnMoves) {
    PanelPlacement placement;
    const QRectF shown = placement.show(both, laptop);
    placement.moved(shown.translated(0.5, -0.5), both);
    placement.moved(placement.resize(467, laptop), both);
    EXPECT_FALSE(placement.sessionDraggedTopLeft());

    placement.moved({1500, 300, 640, 467}, both);
    EXPECT_EQ(placement.sessionDraggedTopLeft(), QPointF(1500, 767));
    // The next showing is there, although the mouse is on the other screen.
    EXPECT_EQ(placement.show(both, laptop), QRectF(1500, 711, 640, 56));
    // A drag that leaves the left screen's frame is clamped into the screen that it ends on.
    placement.moved({3300, 300, 640, 56}, both);
    EXPECT_EQ(placement.resize(56, laptop), QRectF(2720, 300, 640, 56));
    // Away and back to where it was placed is a drag, too.
    placement.moved({500, 300, 640, 56}, both);
    placement.moved({2720, 300, 640, 56}, both);
    EXPECT_EQ(placement.sessionDraggedTopLeft(), QPointF(2720, 356));
}

TEST(PanelPlacementTest, HangsBelowTheLineThatItsUpperEdgeIsOn) {
    const Screen above{{0, 900, 1440, 900}, {0, 900, 1440, 900}};
    const std::vector<Screen> screens{above, laptop, external};
    PanelPlacement placement;
    placement.show(screens, laptop);
    for (const QPointF corner : {QPointF(1500, 1040), QPointF(100, 900), QPointF(100, 1800)}) {
        placement.moved({corner.x(), corner.y() - 56, 640, 56}, screens);
        EXPECT_EQ(placement.show(screens, laptop),
                  QRectF(corner - QPointF(0, 56), QSizeF(640, 56)));
    }
}

TEST(PanelPlacementTest, ADraggedPlaceOnAScreenThatIsGoneIsClampedIntoTheMousesScreen) {
    PanelPlacement placement;
    placement.show(both, external);
    placement.moved({2600, 900, 640, 56}, both);
    EXPECT_EQ(placement.show({laptop}, laptop), QRectF(800, 844, 640, 56));
    // Plugged in again, the place is valid again.
    EXPECT_EQ(placement.show(both, laptop), QRectF(2600, 900, 640, 56));
}

TEST(PanelPlacementTest, ChoosesTheScreenUnderTheMouse) {
    EXPECT_EQ(targetScreen({1439.5, 10}, both, laptop), laptop);
    EXPECT_EQ(targetScreen({1440, 10}, both, laptop), external);
    EXPECT_EQ(targetScreen({100, 900}, both, external), external);
    EXPECT_EQ(targetScreen({-5, -5}, both, std::nullopt), laptop);
}

TEST(PanelPlacementTest, KnowsTheScreenThatThePanelIsOn) {
    PanelPlacement placement;
    const QRectF onLaptop = placement.show(both, laptop);
    const QRectF onExternal = placement.show(both, external);
    EXPECT_EQ(screenOf(onLaptop, both), laptop);
    EXPECT_EQ(screenOf(onExternal, both), external);
    EXPECT_EQ(screenOf(onExternal, {laptop}), std::nullopt);
    const Screen smaller{{0, 0, 1280, 720}, {0, 0, 1280, 720}};
    EXPECT_EQ(screenOf(onLaptop, {external, smaller}), smaller);
}

} // namespace
} // namespace quorvantel
