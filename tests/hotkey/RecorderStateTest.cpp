#include "hotkey/RecorderState.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using Fate = platform::KeyCapture::Fate;

constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t escape = 53;

TEST(RecorderStateTest, AClickStartsTheRecordingOrCallsItOff) {
    EXPECT_EQ(RecorderState::idle().clicked(), RecorderState::recording());
    EXPECT_EQ(RecorderState::error(QStringLiteral("no")).clicked(), RecorderState::recording());
    EXPECT_EQ(RecorderState::recording().clicked(), RecorderState::idle());
}

TEST(RecorderStateTest, RecordsWhatIncludesCommandOrControl) {
    for (const std::uint32_t modifiers : {0x0100U, 0x1000U, 0x0300U, 0x1A00U, 0x1B00U}) {
        const RecordedKey recorded = record({keyK, modifiers});
        EXPECT_EQ(recorded.state, RecorderState::idle());
        EXPECT_EQ(recorded.binding, (HotKeyBinding{keyK, modifiers}));
        EXPECT_EQ(recorded.fate, Fate::Swallowed);
    }
}

TEST(RecorderStateTest, RefusesWhatPeopleTypeWith) {
    for (const std::uint32_t modifiers : {0x0000U, 0x0200U, 0x0800U, 0x0A00U}) {
        const RecordedKey recorded = record({keyK, modifiers});
        EXPECT_EQ(recorded.state,
                  RecorderState::error(QStringLiteral("Hotkey must include ⌘ or ⌃")));
        EXPECT_EQ(recorded.binding, std::nullopt);
        EXPECT_EQ(recorded.fate, Fate::Swallowed);
    }
}

TEST(RecorderStateTest, EscapeCallsOffWithAnyModifiersAndGoesOnToTheWindow) {
    for (const std::uint32_t modifiers : {0x0000U, 0x0100U, 0x1B00U}) {
        const RecordedKey recorded = record({escape, modifiers});
        EXPECT_EQ(recorded.state, RecorderState::idle());
        EXPECT_EQ(recorded.binding, std::nullopt);
        EXPECT_EQ(recorded.fate, Fate::PassedOn);
    }
}

} // namespace
} // namespace quorvantel
