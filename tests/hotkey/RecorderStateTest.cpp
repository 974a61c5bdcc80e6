#include "hotkey/RecorderState.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using Fate = platform::KeyCapture::Fate;

constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t escape = 53;

TEST(RecorderStateTest, AClickStartsTheRecordingOrCallsItOff) {
    EXPECT_EQ(RecorderState::idle().clicked(), RecorderState::recording());
    EXPECT_EQ(RecorderState::error(u"no"_s).clicked(), RecorderState::recording());
    EXPECT_EQ(RecorderState::recording().clicked(), RecorderState::idle());
}

TEST(RecorderStateTest, RecordsWhatIncludesCommandOrControlUnlessItIsEscape) {
    const RecorderState refused = RecorderState::error(u"Hotkey must include ⌘ or ⌃"_s);
    const auto isRecordedAs = [](std::optional<std::uint32_t> key, std::uint32_t modifiers,
                                 const RecordedKey& expected) {
        const RecordedKey recorded = record({key, modifiers});
        return recorded.state == expected.state && recorded.binding == expected.binding &&
               recorded.fate == expected.fate;
    };
    for (const std::uint32_t modifiers : {0x0100U, 0x1000U, 0x0300U, 0x1A00U, 0x1B00U}) {
        EXPECT_TRUE(
            isRecordedAs(keyK, modifiers,
                         {RecorderState::idle(), HotKeyBinding{keyK, modifiers}, Fate::Swallowed}));
    }
    for (const std::uint32_t modifiers : {0x0000U, 0x0200U, 0x0800U, 0x0A00U}) {
        EXPECT_TRUE(isRecordedAs(keyK, modifiers, {refused, std::nullopt, Fate::Swallowed}));
    }
    EXPECT_TRUE(isRecordedAs(
        std::nullopt, 0x1000,
        {RecorderState::error(u"This key cannot be a hotkey"_s), std::nullopt, Fate::Swallowed}));
    for (const std::uint32_t modifiers : {0x0000U, 0x0100U, 0x1B00U}) {
        EXPECT_TRUE(
            isRecordedAs(escape, modifiers, {RecorderState::idle(), std::nullopt, Fate::PassedOn}));
    }
}

} // namespace
} // namespace quorvantel
