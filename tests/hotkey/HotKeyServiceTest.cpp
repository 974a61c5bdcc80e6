#include "hotkey/HotKeyService.h"

#include "support/FakeHotKeys.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

class HotKeyServiceTest : public ::testing::Test {
protected:
    HotKeyServiceTest() {
        QObject::connect(&service, &HotKeyService::changed, &service, [this] { ++changes; });
        QObject::connect(&service, &HotKeyService::failed, &service,
                         [this](const HotKeyError& error) { failures << error.description(); });
    }

    static SummonHotKey standing(const std::optional<HotKeyBinding>& active,
                                 const std::optional<HotKeyError>& failure = {}) {
        return {.active = active, .trigger = {}, .failure = failure, .leftToUser = {}};
    }

    void press(std::uint32_t id = 1) {
        hotKeys.handler({HotKeyService::identity.signature, id});
        QCoreApplication::processEvents();
    }

    testing::FakeHotKeys hotKeys;
    HotKeyService service{hotKeys};
    int presses = 0;
    int changes = 0;
    QStringList failures;
    const HotKeyError invalid = HotKeyError::invalidModifiers();
    const HotKeyError refusal = HotKeyError::registrationFailed({10, {}});
    HotKeyService::Handler count = [this] { ++presses; };
};

TEST_F(HotKeyServiceTest, RejectsCombinationsThatPeopleTypeWithAndKeepsTheCurrentOne) {
    service.registerHotKey({49, 0x1000}, count);
    EXPECT_EQ(service.state(), standing(HotKeyBinding{49, 0x1000}));
    for (const std::uint32_t modifiers : {0x0000U, 0x0200U, 0x0800U, 0x0A00U}) {
        service.registerHotKey({49, modifiers}, [] {});
        EXPECT_EQ(service.state(), standing(HotKeyBinding{49, 0x1000}, invalid));
    }
    press();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(failures.size(), 4);
    EXPECT_EQ(failures.front(),
              u"Hotkey binding must include ⌘ (cmdKey) or ⌃ (controlKey). Option-only "
              u"and Option+Shift-only bindings are rejected by macOS (\u22129868)."_s);

    service.registerHotKey({49, 0x0800}, count, HotKeyBinding::defaultBinding());
    EXPECT_EQ(service.state(), standing(HotKeyBinding::defaultBinding(), invalid));
    hotKeys.turn(testing::FakeHotKeys::refusal);
    EXPECT_EQ(service.state(), standing({}, invalid)) << "which is not about what was lost";
    hotKeys.turn(platform::HotKeyRegistered{});
    EXPECT_EQ(service.state(), standing(HotKeyBinding::defaultBinding(), invalid));
}

TEST_F(HotKeyServiceTest, ReplacesTheRegistrationReleasingTheOldOneFirst) {
    service.registerHotKey({49, 0x1000}, count);
    hotKeys.log.clear();
    service.registerHotKey({40, 0x0300}, count);
    EXPECT_EQ(hotKeys.log,
              (QStringList{u"-4096+49"_s, u"-handler"_s, u"+handler"_s, u"+768+40"_s}));
}

TEST_F(HotKeyServiceTest, ARefusalLeavesNothingRegistered) {
    service.registerHotKey({49, 0x1000}, count);
    const auto expectNothing = [this] {
        EXPECT_EQ(service.state(), standing({}, refusal));
        EXPECT_EQ(hotKeys.registered, QStringList());
        press();
        EXPECT_EQ(presses, 0);
    };
    hotKeys.refused = {u"768+40"_s};
    service.registerHotKey({40, 0x0300}, count);
    expectNothing();
    service.askAgain(count);
    expectNothing();
    hotKeys.refused.clear();
    hotKeys.answer = platform::HotKeyPending{};
    service.registerHotKey({40, 0x0300}, count);
    EXPECT_TRUE(service.state().isPending);
    hotKeys.turn(testing::FakeHotKeys::refusal);
    expectNothing();
    service.askAgain(count);
    EXPECT_EQ(hotKeys.registered, QStringList()) << "who thought about it may have asked the user";
    EXPECT_EQ(failures, QStringList(2, u"RegisterEventHotKey failed with OSStatus 10."_s));
    service.unregister();
    service.unregister();
    EXPECT_EQ(service.state(), SummonHotKey());
}

TEST_F(HotKeyServiceTest, ARefusedOneComesInPlaceOfItsSubstituteOnceItIsFree) {
    hotKeys.refused = {u"768+40"_s};
    service.registerHotKey({40, 0x0300}, count, HotKeyBinding::defaultBinding());
    hotKeys.refused.clear();
    service.askAgain(count);
    EXPECT_EQ(service.state(), standing(HotKeyBinding{40, 0x0300}));
    EXPECT_EQ(hotKeys.registered, (QStringList{u"768+40"_s, u"handler"_s}));
    press();
    EXPECT_EQ(presses, 1);
}

TEST_F(HotKeyServiceTest, TheSubstituteTakesThePlaceOfWhatIsRefusedNowOrLater) {
    const HotKeyBinding substitute = HotKeyBinding::defaultBinding();
    hotKeys.answer = platform::HotKeyPending{};
    service.registerHotKey({40, 0x0300}, count, substitute);
    hotKeys.answer = platform::HotKeyRegistered{};
    hotKeys.turn(testing::FakeHotKeys::refusal);
    EXPECT_EQ(service.state(), standing(substitute, refusal));
    press();
    EXPECT_EQ(presses, 1);

    // One that the user switched off in the system's settings may be switched on again there.
    hotKeys.answer = platform::HotKeyPending{};
    service.registerHotKey({40, 0x0300}, count, substitute);
    hotKeys.turn(platform::HotKeyUnavailable{100, {}, true});
    EXPECT_FALSE(service.state().active);
    hotKeys.turn(platform::HotKeyRegistered{});
    EXPECT_EQ(service.state(), standing(HotKeyBinding{40, 0x0300}, {}));

    hotKeys.answer = platform::HotKeyPending{};
    service.registerHotKey({40, 0x0300}, count, substitute);
    hotKeys.turn(testing::FakeHotKeys::refusal);
    EXPECT_TRUE(service.state().isPending);
    hotKeys.turn(testing::FakeHotKeys::refusal);
    EXPECT_EQ(service.state(), standing({}, refusal)) << "one after the other";
    EXPECT_EQ(failures.size(), 3) << "the substitute's goes without saying";

    service.registerHotKey(substitute, count, substitute);
    hotKeys.turn(testing::FakeHotKeys::refusal);
    EXPECT_EQ(service.state(), standing({}, refusal));
    EXPECT_EQ(hotKeys.registered, QStringList()) << "not the same again";
}

TEST_F(HotKeyServiceTest, FollowsWhatTheSystemMakesOfItAndTellsOfRealChangesOnly) {
    service.registerHotKey({40, 0x0300}, count, HotKeyBinding::defaultBinding());
    EXPECT_EQ(changes, 1);
    hotKeys.turn(platform::HotKeyRegistered{});
    EXPECT_EQ(changes, 1);
    hotKeys.turn(platform::HotKeyRegistered{u"Meta+K"_s});
    EXPECT_EQ(service.state().pressText(), u"Meta+K"_s);
    hotKeys.turn(testing::FakeHotKeys::refusal);
    EXPECT_EQ(service.state(), standing({}, refusal));
    EXPECT_EQ(failures.size(), 1);
    hotKeys.turn(platform::HotKeyRegistered{});
    EXPECT_EQ(service.state(), standing(HotKeyBinding{40, 0x0300})) << "what is lost may come back";
    const platform::HotKeyLeftToUser left{u"Do"_s, u"this"_s};
    hotKeys.turn(left);
    EXPECT_EQ(service.state().leftToUser, left);
    EXPECT_EQ(service.state().active, std::nullopt);
    EXPECT_EQ(changes, 5);
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
