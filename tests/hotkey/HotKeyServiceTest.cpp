#include "hotkey/HotKeyService.h"

#include "support/FakeHotKeys.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

class HotKeyServiceTest : public ::testing::Test {
protected:
    void press(std::uint32_t id = 1) {
        hotKeys.handler({HotKeyService::identity.signature, id});
        QCoreApplication::processEvents();
    }

    testing::FakeHotKeys hotKeys;
    HotKeyService service{hotKeys};
    int presses = 0;
    HotKeyService::Handler count = [this] { ++presses; };
};

TEST_F(HotKeyServiceTest, RejectsCombinationsThatPeopleTypeWithAndKeepsTheCurrentOne) {
    ASSERT_EQ(service.registerHotKey({49, 0x1000}, count), std::nullopt);
    for (const std::uint32_t modifiers : {0x0000U, 0x0200U, 0x0800U, 0x0A00U}) {
        EXPECT_EQ(service.registerHotKey({49, modifiers}, [] {}), HotKeyError::invalidModifiers());
    }
    press();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(HotKeyError::invalidModifiers().description(),
              u"Hotkey binding must include ⌘ (cmdKey) or ⌃ (controlKey). Option-only "
              u"and Option+Shift-only bindings are rejected by macOS (\u22129868)."_s);
}

TEST_F(HotKeyServiceTest, ReplacesTheRegistrationReleasingTheOldOneFirst) {
    service.registerHotKey({49, 0x1000}, count);
    hotKeys.log.clear();
    ASSERT_EQ(service.registerHotKey({40, 0x0300}, count), std::nullopt);
    EXPECT_EQ(hotKeys.log,
              (QStringList{u"-4096+49"_s, u"-handler"_s, u"+handler"_s, u"+768+40"_s}));
}

TEST_F(HotKeyServiceTest, ARefusalLeavesNothingRegistered) {
    service.registerHotKey({49, 0x1000}, count);
    hotKeys.refused = {u"768+40"_s};
    const auto error = service.registerHotKey({40, 0x0300}, count);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), u"RegisterEventHotKey failed with OSStatus 10."_s);
    EXPECT_FALSE(service.isRegistered());
    EXPECT_EQ(hotKeys.registered, QStringList());
    press();
    EXPECT_EQ(presses, 0);
    service.unregister();
    service.unregister();
}

TEST_F(HotKeyServiceTest, RunsTheHandlerFromTheEventLoopAndOnlyForItsOwnHotKey) {
    service.registerHotKey({49, 0x1000}, count);
    hotKeys.handler(HotKeyService::identity);
    EXPECT_EQ(presses, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(presses, 1);
    press(2);
    EXPECT_EQ(presses, 1);

    // A press that is still waiting when the hotkey goes is dropped.
    hotKeys.handler(HotKeyService::identity);
    service.unregister();
    QCoreApplication::processEvents();
    EXPECT_EQ(presses, 1);
}

} // namespace
} // namespace quorvantel
