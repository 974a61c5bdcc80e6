#include "platform/linux/keyboard/KeyPositions.h"

#include "hotkey/HotKeyBinding.h"

#include <gtest/gtest.h>

#include <array>

namespace quorvantel::platform {
namespace {

TEST(KeyPositionsTest, EveryKeyWithANameHasAPosition) {
    for (std::uint32_t keyCode = 0; keyCode < 128; ++keyCode) {
        const bool hasName = !virtualKeyName(keyCode).startsWith(QStringLiteral("key "));
        EXPECT_TRUE(keyNameForVirtualKey(keyCode) || !hasName) << keyCode;
    }
    EXPECT_FALSE(keyNameForVirtualKey(200));
    EXPECT_FALSE(virtualKeyForKeyName("LWIN"));
}

TEST(KeyPositionsTest, RowsAreInKeyboardOrder) {
    // The codes of a row are scattered; read along the positions they must spell the US rows.
    const auto row = [](const char* prefix, int count) {
        QString keys;
        for (int column = 1; column <= count; ++column) {
            const auto name = QStringLiteral("%1%2")
                                  .arg(QLatin1String(prefix))
                                  .arg(column, 2, 10, QLatin1Char('0'));
            keys += virtualKeyName(virtualKeyForKeyName(name.toStdString()).value());
        }
        return keys;
    };
    constexpr std::array<std::uint32_t, 10> keypad{82, 83, 84, 85, 86, 87, 88, 89, 91, 92};
    for (std::size_t digit = 0; digit < keypad.size(); ++digit) {
        EXPECT_EQ(virtualKeyForKeyName("KP" + std::to_string(digit)), keypad.at(digit));
    }
    const std::pair<std::string_view, std::uint32_t> operators[] = {
        {"KPDV", 75}, {"KPMU", 67}, {"KPSU", 78}, {"KPAD", 69},
        {"KPEN", 76}, {"KPDL", 65}, {"KPEQ", 81}};
    for (const auto& [name, keyCode] : operators) {
        EXPECT_EQ(virtualKeyForKeyName(name), keyCode) << name;
    }
    EXPECT_EQ(row("AE", 12), QStringLiteral("1234567890-="));
    EXPECT_EQ(row("AD", 12), QStringLiteral("QWERTYUIOP[]"));
    EXPECT_EQ(row("AC", 11), QStringLiteral("ASDFGHJKL;'"));
    EXPECT_EQ(row("AB", 10), QStringLiteral("ZXCVBNM,./"));
    EXPECT_EQ(row("FK", 20), QStringLiteral("F1F2F3F4F5F6F7F8F9F10F11F12F13F14F15F16F17F18F19F20"));
}

} // namespace
} // namespace quorvantel::platform
