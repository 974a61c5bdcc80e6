#include "panel/PanelPlacement.h"

#include <gtest/gtest.h>

void PrintTo(const QRectF& rectangle, std::ostream* stream) {
    *stream << '(' << rectangle.x() << ", " << rectangle.y() << ", " << rectangle.width() << ", "
            << rectangle.height() << ')';
}

namespace quorvantel {
namespace {

using platform::Screen;

const Screen laptop{{QStringLiteral("laptop")}, {0, 0, 1440, 900}, {0, 0, 1440, 900}};
const Screen external{{QStringLiteral("external")}, {1440, 0, 1920, 1080}, {1440, 40, 1920, 1000}};
const std::vector<Screen> both{laptop, external};

TEST(PanelPlacementTest, GrowsDownwardAndComesBackToItsAnchor) {
    PanelPlacement placement;
    EXPECT_EQ(placement.show({laptop}, laptop), QRectF(400, 664, 640, 56));
    EXPECT_EQ(placement.resize(467), QRectF(400, 253, 640, 467));
    // Taller than the room below the anchor: pulled up; taller than the screen: cut as well.
    EXPECT_EQ(placement.resize(800), QRectF(400, 0, 640, 800));
    EXPECT_EQ(placement.resize(2000), QRectF(400, 0, 640, 900));
    EXPECT_EQ(placement.resize(56), QRectF(400, 664, 640, 56));
    const Screen narrow{{}, {100, 0, 600, 900}, {100, 0, 600, 900}};
    EXPECT_EQ(placement.show({narrow}, narrow).x(), 100);
}

TEST(PanelPlacementTest, TellsTheUsersDragsFromItsOwnMoves) {
    PanelPlacement placement;
    const QRectF shown = placement.show(both, laptop);
    placement.moved(shown.translated(0.5, -0.5), both);
    placement.moved(placement.resize(467), both);
    EXPECT_FALSE(placement.sessionDraggedTopLeft());

    placement.moved({1500, 300, 640, 467}, both);
    EXPECT_EQ(placement.sessionDraggedTopLeft(), QPointF(1500, 767));
    // The next showing is there, although the mouse is on the other screen.
    EXPECT_EQ(placement.show(both, laptop), QRectF(1500, 711, 640, 56));
    // A drag that leaves the left screen's frame is clamped into the screen that it ends on.
    placement.moved({3300, 300, 640, 56}, both);
    EXPECT_EQ(placement.resize(56), QRectF(2720, 300, 640, 56));
    // Away and back to where it was placed is a drag, too.
    placement.moved({500, 300, 640, 56}, both);
    placement.moved({2720, 300, 640, 56}, both);
    EXPECT_EQ(placement.sessionDraggedTopLeft(), QPointF(2720, 356));
}

TEST(PanelPlacementTest, HangsBelowTheLineThatItsUpperEdgeIsOn) {
    const Screen above{{}, {0, 900, 1440, 900}, {0, 900, 1440, 900}};
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

TEST(PanelPlacementTest, KnowsTheScreenThatItIsOnAndThePlaceThere) {
    PanelPlacement placement;
    const QRectF shown = placement.show(both, external);
    EXPECT_EQ(placement.screen(), external);
    EXPECT_EQ(fromTopLeft(shown, external), QRect(640, 240, 640, 56));
    placement.moved({100.4, 700.4, 640, 56}, both);
    EXPECT_EQ(placement.screen(), laptop);
    EXPECT_EQ(fromTopLeft(placement.frame(), laptop), QRect(100, 144, 640, 56));
    placement.show(both, external);
    EXPECT_EQ(placement.screen(), laptop) << "where it was dragged to";
}

} // namespace
} // namespace quorvantel
