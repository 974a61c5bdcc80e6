#include "platform/linux/shortcuts/DesktopHotKeys.h"
#include "platform/linux/shortcuts/DesktopShortcut.h"
#include "platform/linux/shortcuts/KdeKeySequence.h"
#include "support/WaitUntil.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using testing::WaylandCompositor;
using testing::WaylandInput;
using namespace HotKeyModifier;
using namespace Qt::StringLiterals;

constexpr int space = 49;
constexpr int metaF9 = (Qt::META | Qt::Key_F9).toCombined();
constexpr int metaAltSpace = (Qt::META | Qt::ALT | Qt::Key_Space).toCombined();
constexpr int metaShiftK = (Qt::META | Qt::SHIFT | Qt::Key_K).toCombined();

/// KDE's global shortcuts as KWin answers for them, and real keys.
class KWinShortcutTest : public ::testing::Test {
protected:
    KWinShortcutTest() {
        qDBusRegisterMetaType<KdeKeySequence>();
        qDBusRegisterMetaType<KdeKeySequences>();
    }
    ~KWinShortcutTest() override {
        registration.reset();
        for (const QString& name : {u"launcher"_s, u"other"_s}) {
            QDBusConnection::disconnectFromBus(name);
        }
    }

    void registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers) {
        registration.reset();
        registration = hotKeys.registerHotKey(keyCode, modifiers, {1, 1}, nullptr);
    }

    bool turnsTo(const HotKeyState& state) {
        return waitUntil([&] { return registration->state() == state; });
    }

    bool isRefused(HotKeyStatus status, const QString& word = {}) {
        return waitUntil([&] {
            const auto* const refusal = std::get_if<HotKeyUnavailable>(&registration->state());
            return refusal != nullptr && refusal->status == status &&
                   refusal->reason.contains(word);
        });
    }

    bool works(std::initializer_list<int> keys) {
        const int before = presses;
        input.press(keys);
        return waitUntil([&] { return presses > before; }) && presses == before + 1;
    }

    /// As another program, or as the system's settings.
    QVariant call(const char* method, const QVariantList& arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(u"org.kde.kglobalaccel"_s, u"/kglobalaccel"_s,
                                           u"org.kde.KGlobalAccel"_s, QString::fromLatin1(method));
        message.setArguments(arguments);
        return other.call(message).arguments().value(0);
    }

    /// The keys that an action has been given; 0 for none.
    int take(const QStringList& action, int key) {
        call("doRegister", {action});
        const auto keys = qdbus_cast<KdeKeySequences>(
            call("setShortcutKeys",
                 {action, QVariant::fromValue(KdeKeySequences{KdeKeySequence::of(key)}), 6U}));
        return keys.isEmpty() ? 0 : keys.first().firstKey();
    }

    void chooseInSettings(int key) {
        call("setForeignShortcutKeys",
             {ours, QVariant::fromValue(KdeKeySequences{KdeKeySequence::of(key)})});
    }

    static inline const QStringList ours{u"org.quorvantel.Quorvantel"_s, u"summon"_s, QString(),
                                         QString()};
    static inline const QStringList theirs{u"theirs"_s, u"act"_s, u"Their Program"_s, u"Act"_s};

    WaylandCompositor kwin{{.program = u"kwin_wayland"_s}};
    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    WaylandInput input{kwin};
    QDBusConnection other = QDBusConnection::connectToBus(kwin.busAddress(), u"other"_s);
    DesktopHotKeys hotKeys{QDBusConnection::connectToBus(kwin.busAddress(), u"launcher"_s),
                           {u"KDE"_s},
                           u"launch"_s,
                           Keymap::us()};
    int presses = 0;
    std::unique_ptr<GlobalHotKeys::Token> handler =
        hotKeys.installHandler([this](HotKeyIdentity) { ++presses; });
    std::unique_ptr<GlobalHotKeys::Registration> registration;
};

TEST_F(KWinShortcutTest, WorksUntilItIsGivenBack) {
    registerHotKey(space, command | option);
    ASSERT_TRUE(turnsTo(HotKeyRegistered{}));
    EXPECT_TRUE(works({KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE}));
    {
        const auto suspension = hotKeys.suspend();
        input.press({KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE});
        EXPECT_FALSE(waitUntil([&] { return presses > 1; }, std::chrono::milliseconds(300)));
    }
    EXPECT_TRUE(waitUntil([&] {
        input.press({KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE});
        return presses > 1;
    }));
    // KWin names keys by what they type.
    registerHotKey(18, control | shift);
    ASSERT_TRUE(turnsTo(HotKeyRegistered{}));
    EXPECT_TRUE(works({KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_1}));
    registerHotKey(40, command | shift);
    ASSERT_TRUE(turnsTo(HotKeyRegistered{}));
    input.press({KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE});
    EXPECT_TRUE(works({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_K}));
    registration.reset();
    EXPECT_EQ(take(theirs, metaShiftK), metaShiftK);
}

TEST_F(KWinShortcutTest, WhatAnotherProgramHasIsRefusedByItsName) {
    ASSERT_EQ(take(theirs, metaAltSpace), metaAltSpace);
    registerHotKey(space, command | option);
    EXPECT_TRUE(isRefused(ShortcutStatus::taken, u"Their Program"_s));
    // Nothing of the refusal stays in the system's settings.
    EXPECT_TRUE(qdbus_cast<KdeKeySequences>(call("defaultShortcutKeys", {ours})).isEmpty());
    call("setForeignShortcutKeys",
         {theirs, QVariant::fromValue(KdeKeySequences{KdeKeySequence::of(metaF9)})});
    EXPECT_TRUE(turnsTo(HotKeyRegistered{}));
}

TEST_F(KWinShortcutTest, FollowsTheSystemsSettingsAndARestart) {
    registerHotKey(space, command | option);
    ASSERT_TRUE(turnsTo(HotKeyRegistered{}));
    chooseInSettings(metaF9);
    EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Meta+F9"_s}));
    EXPECT_TRUE(works({KEY_LEFTMETA, KEY_F9}));
    // The choice outlasts the launcher and KWin, until the launcher has another hotkey.
    registerHotKey(space, command | option);
    EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Meta+F9"_s}));
    kwin.restart();
    EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Meta+F9"_s}));
    {
        WaylandInput after(kwin);
        after.press({KEY_LEFTMETA, KEY_F9});
        EXPECT_TRUE(waitUntil([&] { return presses == 2; }));
    }
    chooseInSettings(0);
    EXPECT_TRUE(isRefused(ShortcutStatus::switchedOff));
    registerHotKey(space, command | option);
    EXPECT_TRUE(isRefused(ShortcutStatus::switchedOff));
    registerHotKey(space, command | control);
    EXPECT_TRUE(turnsTo(HotKeyRegistered{}));
}

} // namespace
} // namespace quorvantel::platform
