#include "platform/linux/x11/X11HotKeys.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/ForeignHotKey.h"
#include "support/Keyboard.h"
#include "support/UnmanagedWindow.h"
#include "support/XDesktop.h"

#include <QProcess>
#include <QTest>

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <initializer_list>

namespace quorvantel::platform {
namespace {

using testing::ForeignHotKey;
using testing::Keyboard;
using testing::waitUntil;
using testing::XConnection;

constexpr std::uint32_t space = 49;
constexpr HotKeyIdentity identity{0x51, 1};
constexpr HotKeyStatus success = 0;

HotKeyStatus statusOf(const GlobalHotKeys::Registration& registration) {
    const auto* const unavailable = std::get_if<HotKeyUnavailable>(&registration.state());
    return unavailable == nullptr ? success : unavailable->status;
}

class X11HotKeysTest : public ::testing::Test {
protected:
    std::unique_ptr<GlobalHotKeys::Registration> registerKey(std::uint32_t keyCode,
                                                             std::uint32_t modifiers) {
        return hotKeys.registerHotKey(keyCode, modifiers, identity);
    }

    /// Presses a chord and says whether it made the number of presses grow by one.
    bool reports(const std::vector<xcb_keysym_t>& chord) {
        const int before = presses;
        keyboard.press(chord);
        // The presses of the sentinel come after the chord's, so that nothing can still follow.
        const int sentinelBefore = sentinelPresses;
        keyboard.press({XK_Control_L, XK_F12});
        EXPECT_TRUE(waitUntil([&] { return sentinelPresses > sentinelBefore; }));
        return presses == before + 1;
    }

    void run(const QString& program, const QStringList& arguments) {
        // The keyboard stands still until a hotkey's press has been dealt with, and xmodmap waits
        // until all keys are let go.
        const testing::XDesktop desktop(connection);
        ASSERT_TRUE(waitUntil([&desktop] { return !desktop.isAnyKeyDown(); }));
        ASSERT_EQ(QProcess::execute(program, arguments), 0);
    }

    void moveSuper(const char* from, const char* to) {
        run(QStringLiteral("xmodmap"),
            {QStringLiteral("-e"), QStringLiteral("clear %1").arg(QLatin1String(from)),
             QStringLiteral("-e"), QStringLiteral("add %1 = Super_L").arg(QLatin1String(to))});
    }

    XConnection connection;
    Keyboard keyboard{connection};
    X11Display display = X11Display::current().value();
    X11EventDispatcher events;
    X11RawEvents rawEvents{display, events};
    X11Keyboard x11Keyboard{display, events};
    X11HotKeys hotKeys{display, events, rawEvents, x11Keyboard};
    int presses = 0;
    int sentinelPresses = 0;
    std::unique_ptr<GlobalHotKeys::Token> handler = hotKeys.installHandler(
        [this](HotKeyIdentity pressed) { ++(pressed == identity ? presses : sentinelPresses); });
    std::unique_ptr<GlobalHotKeys::Registration> sentinel =
        hotKeys.registerHotKey(111, HotKeyModifier::control, {0x51, 2});
};

TEST_F(X11HotKeysTest, ReportsItsCombinationAndNoOther) {
    const auto registration = registerKey(space, HotKeyModifier::command | HotKeyModifier::option);
    EXPECT_TRUE(reports({XK_Super_L, XK_Alt_L, XK_space}));
    EXPECT_TRUE(reports({XK_Alt_L, XK_Super_L, XK_space}));
    EXPECT_FALSE(reports({XK_Super_L, XK_space}));
    EXPECT_FALSE(reports({XK_Super_L, XK_Alt_L, XK_Shift_L, XK_space}));
    EXPECT_FALSE(reports({XK_Super_L, XK_Alt_L, XK_a}));
}

TEST_F(X11HotKeysTest, LocksMakeNoDifference) {
    const auto registration = registerKey(space, HotKeyModifier::control);
    for (const auto lock : std::initializer_list<xcb_keysym_t>{XK_Caps_Lock, XK_Num_Lock}) {
        keyboard.press({lock});
        EXPECT_TRUE(reports({XK_Control_L, XK_space})) << lock;
    }
    keyboard.press({XK_Caps_Lock});
    EXPECT_TRUE(reports({XK_Control_L, XK_space}));
    keyboard.press({XK_Num_Lock});
}

TEST_F(X11HotKeysTest, AHeldKeyIsOnePress) {
    const auto registration = registerKey(space, HotKeyModifier::control);
    run(QStringLiteral("xset"),
        {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("60"), QStringLiteral("50")});
    keyboard.hold(XK_Control_L);
    keyboard.hold(XK_space);
    QTest::qWait(300);
    keyboard.release(XK_space);
    keyboard.release(XK_Control_L);
    EXPECT_TRUE(waitUntil([&] { return presses > 0; }));
    EXPECT_EQ(presses, 1);
    EXPECT_TRUE(reports({XK_Control_L, XK_space}));
}

TEST_F(X11HotKeysTest, NothingIsReportedWhileSuspendedNorOfAKeyThatIsDownAfterwards) {
    const auto registration = registerKey(space, HotKeyModifier::control);
    {
        const auto suspension = hotKeys.suspend();
        keyboard.hold(XK_Control_L);
        keyboard.hold(XK_space);
        QTest::qWait(50);
    }
    // The server begins to repeat a held key after 660 ms.
    QTest::qWait(900);
    EXPECT_EQ(presses, 0);
    keyboard.release(XK_space);
    keyboard.release(XK_Control_L);
    EXPECT_TRUE(reports({XK_Control_L, XK_space}));
}

TEST_F(X11HotKeysTest, ACombinationThatAnotherClientHoldsIsRefusedWhole) {
    {
        // Held for one state of the locks only.
        const ForeignHotKey foreign(qgetenv("DISPLAY"), XK_space,
                                    XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK);
        ASSERT_TRUE(foreign.isHeld());
        const auto refused = registerKey(space, HotKeyModifier::control);
        EXPECT_EQ(statusOf(*refused), XCB_ACCESS);
        EXPECT_FALSE(reports({XK_Control_L, XK_space}));
        EXPECT_TRUE(ForeignHotKey(qgetenv("DISPLAY"), XK_space, XCB_MOD_MASK_CONTROL).isHeld());
    }
    EXPECT_EQ(statusOf(*registerKey(200, HotKeyModifier::control)), XCB_VALUE);
}

TEST_F(X11HotKeysTest, StaysAtThePhysicalPositionWhateverTheLayout) {
    // The key of virtual code 6 bears "z" on a US keyboard and "y" on a German one.
    const auto registration = registerKey(6, HotKeyModifier::control);
    int changes = 0;
    QObject::connect(&x11Keyboard, &X11Keyboard::changed, &x11Keyboard, [&] { ++changes; });
    const auto setLayout = [&](const QString& layout, xcb_keysym_t letter) {
        run(QStringLiteral("setxkbmap"), {layout});
        Keyboard typist(connection);
        const int before = presses;
        typist.press({XK_Control_L, letter});
        EXPECT_TRUE(waitUntil([&] { return presses == before + 1; }));
        EXPECT_EQ(x11Keyboard.keymap().symbol(x11Keyboard.keymap().keyAt(6).value(), 0, false),
                  letter);
    };
    setLayout(QStringLiteral("us"), XK_z);
    EXPECT_EQ(changes, 0);
    setLayout(QStringLiteral("de"), XK_y);
    EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
    setLayout(QStringLiteral("us"), XK_z);
    EXPECT_TRUE(waitUntil([&] { return changes == 2; }));
}

TEST_F(X11HotKeysTest, FollowsAModifierThatMovesToAnotherBit) {
    const auto registration = registerKey(space, HotKeyModifier::command);
    EXPECT_TRUE(reports({XK_Super_L, XK_space}));
    moveSuper("mod4", "mod3");
    EXPECT_TRUE(waitUntil([this] { return reports({XK_Super_L, XK_space}); }));
    moveSuper("mod3", "mod4");
}

TEST_F(X11HotKeysTest, TellsThatAnotherKeyboardTakesACombinationAwayOrGivesItBack) {
    std::vector<HotKeyStatus> statuses;
    std::unique_ptr<GlobalHotKeys::Registration> registration =
        hotKeys.registerHotKey(space, HotKeyModifier::command, identity,
                               [&] { statuses.push_back(statusOf(*registration)); });
    const ForeignHotKey foreign(qgetenv("DISPLAY"), XK_space, XCB_MOD_MASK_3);
    moveSuper("mod4", "mod3");
    EXPECT_TRUE(waitUntil([&] { return statuses == std::vector<HotKeyStatus>{XCB_ACCESS}; }));
    moveSuper("mod3", "mod4");
    EXPECT_TRUE(waitUntil([&] { return statuses.size() == 2; }));
    EXPECT_EQ(statuses.back(), success);
    EXPECT_TRUE(reports({XK_Super_L, XK_space}));
}

TEST_F(X11HotKeysTest, IsReportedWhileAWindowOfTheLaunchersHoldsTheKeyboard) {
    const auto registration = registerKey(space, HotKeyModifier::control);
    testing::UnmanagedWindow window(QRect(0, 0, 100, 100));
    ASSERT_TRUE(window.setKeyboardGrabEnabled(true));
    EXPECT_TRUE(reports({XK_Control_L, XK_space}));
    // The window takes the key with it: the hotkey is pressed while it is there and let go after.
    keyboard.hold(XK_Control_L);
    keyboard.hold(XK_space);
    ASSERT_TRUE(waitUntil([this] { return presses == 2; }));
    window.setKeyboardGrabEnabled(false);
    window.hide();
    keyboard.release(XK_space);
    keyboard.release(XK_Control_L);
    EXPECT_TRUE(reports({XK_Control_L, XK_space}));
}

} // namespace
} // namespace quorvantel::platform
