#include "platform/linux/keyboard/Keymap.h"

#include "platform/GlobalHotKeys.h"
#include "platform/linux/keyboard/KeyPositions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

/// The virtual key codes of keys of a US keyboard.
constexpr std::uint32_t keyM = 46;
constexpr std::uint32_t comma = 43;

/// Keys without a virtual key code.
constexpr xkb_keycode_t leftAlt = 64;
constexpr xkb_keycode_t withoutSymbols = 8;
constexpr xkb_keycode_t noKey = 0;

Keymap keymapOf(const char* layouts) {
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    const xkb_rule_names names{"evdev", "pc105", layouts, "", ""};
    return Keymap(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

TEST(KeymapTest, ABaseSymbolIsThatOfTheLayoutOrElseOfALatinOne) {
    const Keymap keymap = keymapOf("us,ru,fr,hu");
    const auto base = [&](std::uint32_t virtualKey, unsigned int layout) {
        return keymap.baseSymbol(keymap.keyAt(virtualKey).value(), layout).value();
    };
    EXPECT_EQ(base(keyM, 0), XKB_KEY_m);
    EXPECT_EQ(base(comma, 0), XKB_KEY_comma);
    EXPECT_EQ(base(keyM, 1), XKB_KEY_m);
    EXPECT_EQ(base(comma, 1), XKB_KEY_comma);
    EXPECT_EQ(base(keyM, 2), XKB_KEY_comma);
    EXPECT_EQ(base(comma, 2), XKB_KEY_semicolon);
    EXPECT_EQ(base(comma, 3), XKB_KEY_comma);
    EXPECT_EQ(keymap.symbol(keymap.keyAt(comma).value(), 2, true), XKB_KEY_period);
    EXPECT_EQ(keymapOf("ru").baseSymbol(keymap.keyAt(comma).value(), 0), XKB_KEY_Cyrillic_be);

    EXPECT_EQ(keymap.baseSymbol(leftAlt, 2), XKB_KEY_Alt_L);
    EXPECT_EQ(keymap.baseSymbol(withoutSymbols, 0), std::nullopt);
    EXPECT_EQ(keymap.baseSymbol(noKey, 0), std::nullopt);
    EXPECT_EQ(Keymap().keyAt(comma), std::nullopt);
    EXPECT_EQ(Keymap().baseSymbol(leftAlt, 0), std::nullopt);
}

TEST(KeymapTest, TranslatesEveryKeyOfAnyLayoutButTheModifiers) {
    const Keymap keymap = keymapOf("fr");
    for (std::uint32_t virtualKey = 0; virtualKey < 128; ++virtualKey) {
        const auto key = keymap.keyAt(virtualKey);
        ASSERT_EQ(key.has_value(), keyNameForVirtualKey(virtualKey).has_value()) << virtualKey;
        if (key) {
            EXPECT_EQ(keymap.press(*key, 0), (KeyPress{virtualKey, 0}));
        }
    }
    for (const xkb_keycode_t key : {127U /* Pause */, 107U /* Print */, 77U /* Num Lock */}) {
        EXPECT_EQ(keymap.press(key, 0), (KeyPress{std::nullopt, 0})) << key;
    }
    for (const xkb_keycode_t key : {50U /* Shift */, 105U /* Control */, leftAlt, 108U /* AltGr */,
                                    133U /* Super */, 66U /* Caps Lock */}) {
        EXPECT_EQ(keymap.press(key, 0), std::nullopt) << key;
    }
}

TEST(KeymapTest, ReadsTextOfAnySizeThatIsAKeyMapAndNoOther) {
    const std::string text = "xkb_keymap { xkb_keycodes { <AC01> = 38; }; xkb_types {}; "
                             "xkb_compatibility {}; xkb_symbols { key <AC01> { [ a ] }; }; };";
    EXPECT_EQ(Keymap::fromText(std::string(1U << 20U, ' ') + text).value().symbol(38, 0, false),
              XKB_KEY_a);
    for (const auto& broken : {text.substr(0, 90), std::string(1U << 20U, '{'), std::string()}) {
        EXPECT_EQ(Keymap::fromText(broken), std::nullopt);
    }
}

TEST(KeymapTest, KnowsTheBitsOfTheModifiersAndLeavesOutTheLocks) {
    const KeyModifiers modifiers = keymapOf("us").modifiers();
    EXPECT_EQ(modifiers.bitsOf(HotKeyModifier::command | HotKeyModifier::option), 0x48);
    EXPECT_EQ(modifiers.bitsOf(HotKeyModifier::control | HotKeyModifier::shift), 0x05);
    EXPECT_EQ(modifiers.carbonModifiers(0x5A), HotKeyModifier::command | HotKeyModifier::option);
    EXPECT_THAT(modifiers.lockCombinations(), ::testing::ElementsAre(0, 0x02, 0x10, 0x12));
}

} // namespace
} // namespace quorvantel::platform
