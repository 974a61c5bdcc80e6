#include "hotkey/HotKeyBinding.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

TEST(HotKeyBindingTest, ShowsModifiersInMenuOrderBeforeTheKey) {
    EXPECT_EQ(HotKeyBinding::defaultBinding().displayText(), u"⌥⌘Space"_s);
    EXPECT_EQ((HotKeyBinding{49, 0x1900}.displayText()), u"⌃⌥⌘Space"_s);
    EXPECT_EQ((HotKeyBinding{38, 0x1B00}.displayText()), u"⌃⌥⇧⌘J"_s);
    EXPECT_EQ((HotKeyBinding{122, 0x300}.displayText()), u"⇧⌘F1"_s);
    EXPECT_EQ((HotKeyBinding{200, 0x1000}.displayText()), u"⌃key 200"_s);
}

TEST(HotKeyBindingTest, NamesKeysByTheirPositionOnAnUsKeyboard) {
    // The codes of neighbouring keys are scattered, so each group is read off in keyboard order.
    const auto names = [](std::initializer_list<std::uint32_t> codes) {
        QString text;
        for (const std::uint32_t code : codes) {
            text += virtualKeyName(code) + u' ';
        }
        return text;
    };
    EXPECT_EQ(names({50, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24, 51}),
              u"` 1 2 3 4 5 6 7 8 9 0 - = ⌫ "_s);
    EXPECT_EQ(names({48, 12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30, 42}),
              u"Tab Q W E R T Y U I O P [ ] \\ "_s);
    EXPECT_EQ(names({0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 36}),
              u"A S D F G H J K L ; ' Return "_s);
    EXPECT_EQ(names({6, 7, 8, 9, 11, 45, 46, 43, 47, 44, 49, 53}),
              u"Z X C V B N M , . / Space Esc "_s);
    EXPECT_EQ(names({115, 119, 116, 121, 117, 123, 124, 125, 126}),
              u"Home End PgUp PgDn ⌦ ← → ↓ ↑ "_s);
    EXPECT_EQ(names({122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                     103, 111, 105, 107, 113, 106, 64, 79,  80,  90}),
              u"F1 F2 F3 F4 F5 F6 F7 F8 F9 F10 F11 F12 F13 F14 F15 F16 F17 F18 F19 "
              u"F20 "_s);
}

} // namespace
} // namespace quorvantel
