#include "platform/linux/shortcuts/DesktopHotKeys.h"

#include "shortcuts/FakePortal.h"
#include "support/SessionBus.h"
#include "support/WaitUntil.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::FakePortal;
using testing::SessionBus;
using testing::waitUntil;
using namespace Qt::StringLiterals;
using Manner = FakePortal::Manner;

constexpr HotKeyIdentity identity{1, 1};

class DesktopHotKeysTest : public ::testing::Test {
protected:
    ~DesktopHotKeysTest() override {
        registration.reset();
        for (const QString& name : {u"launcher"_s, u"desktop"_s}) {
            QDBusConnection::disconnectFromBus(name);
        }
    }

    void registerHotKey(const QString& desktop) {
        hotKeys.emplace(bus, QStringList{desktop}, u"launch"_s, Keymap::us());
        handler = hotKeys->installHandler([this](HotKeyIdentity) { ++presses; });
        registration = hotKeys->registerHotKey(49, 0x900, identity, [this] { ++changes; });
    }

    template <typename State>
    bool turnsTo(const State& state) {
        return waitUntil([&] { return registration->state() == HotKeyState(state); });
    }

    HotKeyStatus refusal() {
        const auto* const unavailable = std::get_if<HotKeyUnavailable>(&registration->state());
        return unavailable == nullptr ? 0 : unavailable->status;
    }

    bool isLeftToUser() { return std::holds_alternative<HotKeyLeftToUser>(registration->state()); }

    QTemporaryDir directory;
    SessionBus sessionBus{directory.path()};
    QDBusConnection bus = QDBusConnection::connectToBus(sessionBus.address(), u"launcher"_s);
    QDBusConnection desktop = QDBusConnection::connectToBus(sessionBus.address(), u"desktop"_s);
    std::optional<DesktopHotKeys> hotKeys;
    std::unique_ptr<GlobalHotKeys::Token> handler;
    std::unique_ptr<GlobalHotKeys::Registration> registration;
    int presses = 0;
    int changes = 0;
};

TEST_F(DesktopHotKeysTest, ThePortalBindsAndIsFollowed) {
    std::optional<FakePortal> portal(std::in_place, desktop, Manner::Binds);
    registerHotKey(u"Other"_s);
    EXPECT_EQ(registration->state(), HotKeyState(HotKeyPending{}));
    ASSERT_TRUE(turnsTo(HotKeyRegistered{u"Alt+Logo+Space"_s}));
    EXPECT_EQ(portal->preferredTrigger, u"ALT+LOGO+space"_s);
    portal->press();
    EXPECT_TRUE(waitUntil([&] { return presses == 1; }));
    {
        const auto suspension = hotKeys->suspend();
        portal->press();
        portal->rebind(u"Logo+A"_s);
        EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Logo+A"_s}));
    }
    EXPECT_EQ(presses, 1);
    portal->rebind({});
    EXPECT_TRUE(waitUntil([&] { return refusal() == 100; }));

    portal.reset();
    EXPECT_TRUE(turnsTo(HotKeyPending{}));
    portal.emplace(desktop, Manner::Binds);
    EXPECT_TRUE(turnsTo(HotKeyRegistered{u"Alt+Logo+Space"_s}));
    registration.reset();
    EXPECT_TRUE(waitUntil([&] { return portal->calls.last() == u"Close"_s; }));
}

TEST_F(DesktopHotKeysTest, WithoutAPortalThatReallyBindsTheUserHasToDoIt) {
    registerHotKey(u"sway"_s);
    EXPECT_TRUE(waitUntil([&] { return isLeftToUser(); }));
    FakePortal portal(desktop, Manner::BindsNothing);
    registerHotKey(u"sway"_s);
    EXPECT_TRUE(waitUntil([&] { return isLeftToUser(); }));
    EXPECT_EQ(changes, 2);
    portal.manner = Manner::Hangs;
    registerHotKey(u"sway"_s);
    EXPECT_TRUE(waitUntil([&] { return isLeftToUser(); }));
    portal.manner = Manner::Denies;
    registerHotKey(u"sway"_s);
    EXPECT_TRUE(waitUntil([&] { return refusal() == 101; }));
}

TEST_F(DesktopHotKeysTest, KdeThatDoesNotAnswerIsWaitedForAndHoldsNobodyUp) {
    registerHotKey(u"KDE"_s);
    class Silent : public QDBusVirtualObject {
    public:
        QString introspect(const QString& /*path*/) const override { return {}; }
        bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) override {
            calls << call.member();
            return isSilent;
        }
        QStringList calls;
        bool isSilent = true;
    } kwin;
    desktop.registerVirtualObject(u"/kglobalaccel"_s, &kwin);
    // KWin may come up later than the launcher.
    desktop.registerService(u"org.kde.kglobalaccel"_s);
    EXPECT_TRUE(waitUntil([&] { return kwin.calls.contains(u"defaultShortcutKeys"_s); }));
    EXPECT_EQ(changes, 0);
    desktop.unregisterService(u"org.kde.kglobalaccel"_s);
    kwin.isSilent = false;
    desktop.registerService(u"org.kde.kglobalaccel"_s);
    EXPECT_TRUE(waitUntil([&] { return refusal() == 102; }));
}

TEST_F(DesktopHotKeysTest, AKeyThatTheKeyboardLacksIsRefusedOnceItIsKnown) {
    hotKeys.emplace(bus, QStringList{u"KDE"_s}, u"launch"_s, std::nullopt);
    registration = hotKeys->registerHotKey(200, 0x100, identity, [this] { ++changes; });
    EXPECT_EQ(registration->state(), HotKeyState(HotKeyPending{}));
    hotKeys->setKeymap(Keymap::us());
    EXPECT_EQ(refusal(), 2);
    registration = hotKeys->registerHotKey(200, 0x100, identity, nullptr);
    EXPECT_EQ(refusal(), 2);
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace quorvantel::platform
