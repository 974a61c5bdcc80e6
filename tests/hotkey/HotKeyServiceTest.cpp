#include "hotkey/HotKeyService.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

/// Stands for the system: writes down what is asked of it, and can refuse.
class RecordingHotKeys : public platform::GlobalHotKeys {
public:
    class Entry : public Registration {
    public:
        Entry(QStringList& log, QString name) : m_log(log), m_name(std::move(name)) {}
        ~Entry() override { m_log << QStringLiteral("remove ") + m_name; }

    private:
        QStringList& m_log;
        QString m_name;
    };

    std::unique_ptr<Registration> installHandler(PressHandler pressHandler) override {
        handler = std::move(pressHandler);
        log << QStringLiteral("install handler");
        return std::make_unique<Entry>(log, QStringLiteral("handler"));
    }

    RegistrationResult registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                      platform::HotKeyIdentity) override {
        if (refusal != 0) {
            return refusal;
        }
        log << QStringLiteral("register %1 %2").arg(keyCode).arg(modifiers);
        return std::make_unique<Entry>(log, QStringLiteral("hotkey"));
    }

    QStringList log;
    PressHandler handler;
    platform::HotKeyStatus refusal = 0;
};

class HotKeyServiceTest : public ::testing::Test {
protected:
    void press(std::uint32_t id = 1) {
        hotKeys.handler({HotKeyService::identity.signature, id});
        QCoreApplication::processEvents();
    }

    RecordingHotKeys hotKeys;
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
    EXPECT_EQ(
        HotKeyError::invalidModifiers().description(),
        QStringLiteral("Hotkey binding must include ⌘ (cmdKey) or ⌃ (controlKey). Option-only "
                       "and Option+Shift-only bindings are rejected by macOS (\u22129868)."));
}

TEST_F(HotKeyServiceTest, ReplacesTheRegistrationReleasingTheOldOneFirst) {
    service.registerHotKey({49, 0x1000}, count);
    hotKeys.log.clear();
    ASSERT_EQ(service.registerHotKey({40, 0x0300}, count), std::nullopt);
    EXPECT_EQ(hotKeys.log,
              (QStringList{QStringLiteral("remove hotkey"), QStringLiteral("remove handler"),
                           QStringLiteral("install handler"), QStringLiteral("register 40 768")}));
}

TEST_F(HotKeyServiceTest, ARefusalLeavesNothingRegistered) {
    service.registerHotKey({49, 0x1000}, count);
    hotKeys.refusal = 10;
    const auto error = service.registerHotKey({40, 0x0300}, count);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), QStringLiteral("RegisterEventHotKey failed with OSStatus 10."));
    EXPECT_FALSE(service.isRegistered());
    EXPECT_EQ(hotKeys.log.last(), QStringLiteral("remove handler"));
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
