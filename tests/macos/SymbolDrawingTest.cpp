#include "platform/macos/OwnSymbols.h"
#include "platform/macos/SymbolFrame.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

TEST(SymbolFrame, IsInTheMiddleAndShrinksOnlyToFit) {
    EXPECT_EQ(symbolFrame(QSizeF(12, 8), 16), QRectF(2, 4, 12, 8));
    EXPECT_EQ(symbolFrame(QSizeF(16, 16), 16), QRectF(0, 0, 16, 16));
    EXPECT_EQ(symbolFrame(QSizeF(32, 8), 16), QRectF(0, 6, 16, 4));
    EXPECT_EQ(symbolFrame(QSizeF(8, 64), 16), QRectF(7, 0, 2, 16));
    EXPECT_TRUE(symbolFrame(QSizeF(), 16).isEmpty());
}

TEST(OwnSymbols, AreDrawnByName) {
    const QImage image = ownSymbol(u"bluetooth"_s, 40);
    ASSERT_EQ(image.size(), QSize(40, 40));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    int opaque = 0;
    for (int y = 0; y < 40; ++y) {
        opaque += image.pixelColor(20, y).alpha() > 200 ? 1 : 0;
    }
    EXPECT_GT(opaque, 10);
    EXPECT_TRUE(ownSymbol(u"no.such.symbol"_s, 40).isNull());
}

} // namespace
} // namespace quorvantel::platform
