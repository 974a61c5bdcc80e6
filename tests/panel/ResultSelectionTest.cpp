#include "panel/ResultSelection.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

TEST(ResultSelectionTest, ARestingMouseSelectsNothing) {
    ResultSelection selection;
    selection.reset();
    selection.rest(QPointF(100, 200));
    EXPECT_FALSE(selection.hover(3, {100, 200}));
    EXPECT_TRUE(selection.hover(3, {100, 201}));
    EXPECT_EQ(selection.selectedIndex(), 3);
    EXPECT_TRUE(selection.reset());
    EXPECT_EQ(selection.selectedIndex(), 0);
    // The list comes to lie under the mouse before its place was asked for.
    EXPECT_FALSE(selection.hover(3, {100, 201}));
    selection.rest(QPointF(150, 150));
    EXPECT_FALSE(selection.hover(3, {100, 201}));
    EXPECT_TRUE(selection.hover(3, {101, 201}));
    // It was elsewhere.
    selection.reset();
    selection.rest(std::nullopt);
    EXPECT_TRUE(selection.hover(3, {101, 201}));
}

TEST(ResultSelectionTest, OpensTheLastRowWhenTheListShrankBelowTheSelection) {
    ResultSelection selection;
    selection.hover(7, {1, 1});
    EXPECT_EQ(selection.rowToOpen(3), 2);
    EXPECT_EQ(selection.rowToOpen(8), 7);
    EXPECT_EQ(selection.rowToOpen(0), std::nullopt);
}

} // namespace
} // namespace quorvantel
