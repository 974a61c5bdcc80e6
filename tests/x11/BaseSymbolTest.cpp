#include "platform/linux/x11/BaseSymbol.h"

#include <QProcess>

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

/// Key codes of physical positions.
constexpr xcb_keycode_t rightOfN = 58;
constexpr xcb_keycode_t nextButOneToN = 59;
constexpr xcb_keycode_t leftAlt = 64;
constexpr xcb_keycode_t withoutSymbols = 8;
constexpr xcb_keycode_t noKey = 0;

class BaseSymbolTest : public ::testing::Test {
protected:
    BaseSymbolTest() { setLayouts(QStringLiteral("us,ru,fr,hu")); }
    ~BaseSymbolTest() override { setLayouts(QStringLiteral("us")); }

    static void setLayouts(const QString& layouts) {
        EXPECT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {layouts}), 0);
    }

    X11Display display = X11Display::current().value();
};

TEST_F(BaseSymbolTest, IsThatOfTheLayoutOrElseOfALatinOne) {
    EXPECT_EQ(baseSymbol(display, rightOfN, 0), xcb_keysym_t{XK_m});
    EXPECT_EQ(baseSymbol(display, nextButOneToN, 0), xcb_keysym_t{XK_comma});
    EXPECT_EQ(baseSymbol(display, rightOfN, 1), xcb_keysym_t{XK_m});
    EXPECT_EQ(baseSymbol(display, nextButOneToN, 1), xcb_keysym_t{XK_comma});
    EXPECT_EQ(baseSymbol(display, rightOfN, 2), xcb_keysym_t{XK_comma});
    EXPECT_EQ(baseSymbol(display, nextButOneToN, 2), xcb_keysym_t{XK_semicolon});
    EXPECT_EQ(baseSymbol(display, nextButOneToN, 3), xcb_keysym_t{XK_comma});
}

TEST_F(BaseSymbolTest, KnowsKeysThatAreTheSameInAllLayoutsOrTypeNothing) {
    EXPECT_EQ(baseSymbol(display, leftAlt, 2), xcb_keysym_t{XK_Alt_L});
    EXPECT_EQ(baseSymbol(display, withoutSymbols, 0), std::nullopt);
    EXPECT_EQ(baseSymbol(display, noKey, 0), std::nullopt);
    setLayouts(QStringLiteral("ru"));
    EXPECT_EQ(baseSymbol(display, nextButOneToN, 0), xcb_keysym_t{XK_Cyrillic_be});
}

} // namespace
} // namespace quorvantel::platform
