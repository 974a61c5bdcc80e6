#include "platform/GlobalHotKeys.h"
#include "platform/macos/EventModifiers.h"
#include "platform/macos/HotKeyStatuses.h"
#include "platform/macos/KeyCharacters.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

TEST(EventModifiers, KeepThoseOfAHotKeyAlone) {
    EXPECT_EQ(hotKeyModifiers(1U << 20U), HotKeyModifier::command);
    EXPECT_EQ(hotKeyModifiers(1U << 19U | 1U << 17U),
              HotKeyModifier::option | HotKeyModifier::shift);
    EXPECT_EQ(hotKeyModifiers(1U << 18U), HotKeyModifier::control);
    constexpr unsigned int capsLock = 1U << 16U;
    constexpr unsigned int numberPad = 1U << 21U;
    constexpr unsigned int function = 1U << 23U;
    constexpr unsigned int leftCommandKey = 0x8;
    EXPECT_EQ(hotKeyModifiers(capsLock | numberPad | function | leftCommandKey), 0U);
}

TEST(HotKeyStatuses, SayWhyACombinationDoesNotWork) {
    EXPECT_EQ(hotKeyState(0), HotKeyState(HotKeyRegistered{}));
    for (const HotKeyStatus known : {-9868, -9878}) {
        const HotKeyState state = hotKeyState(known);
        EXPECT_EQ(std::get<HotKeyUnavailable>(state).status, known);
        EXPECT_FALSE(std::get<HotKeyUnavailable>(state).reason.isEmpty());
    }
    EXPECT_EQ(hotKeyState(-50), HotKeyState(HotKeyUnavailable{-50, {}}));
}

TEST(KeyCharacters, AreSinglePrintableLatinOnes) {
    EXPECT_EQ(latinCharacter(u","), u',');
    EXPECT_EQ(latinCharacter(u"ü"), QChar(0xFC));
    for (const std::u16string_view none : {u"", u"\u03C2", u"\r", u"\u007F", u"\u0095", u"lj"}) {
        EXPECT_TRUE(latinCharacter(none).isNull());
    }
}

} // namespace
} // namespace quorvantel::platform
