#include "platform/linux/x11/X11KeyCapture.h"

#include "hotkey/HotKeyBinding.h"
#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/ForeignHotKey.h"
#include "support/Keyboard.h"
#include "support/WaitUntil.h"
#include "support/XDesktop.h"

#include <QKeyEvent>
#include <QTest>
#include <QWindow>

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace ::quorvantel::testing;

constexpr std::uint32_t space = 49;
constexpr std::uint32_t keyK = 40;

class KeyWindow : public QWindow {
public:
    QList<int> typed;

protected:
    void keyPressEvent(QKeyEvent* event) override { typed << event->key(); }
};

class X11KeyCaptureTest : public ::testing::Test {
protected:
    X11KeyCaptureTest() {
        window.resize(100, 100);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    void startCapture() {
        token = capture.capture(window, [this](const KeyPress& press) {
            presses.push_back(press);
            return fate;
        });
    }

    /// Presses a chord and returns what was captured of it.
    std::vector<KeyPress> captured(const std::vector<xcb_keysym_t>& chord) {
        presses.clear();
        keyboard.press(chord);
        waitUntil([this] { return !presses.empty(); }, std::chrono::milliseconds(300));
        return presses;
    }

    XConnection connection;
    testing::Keyboard keyboard{connection};
    XDesktop desktop{connection};
    X11Display display = X11Display::current().value();
    X11EventDispatcher events;
    X11RawEvents rawEvents{display, events};
    X11Keyboard x11Keyboard{display, events};
    X11HotKeys hotKeys{display, events, rawEvents, x11Keyboard};
    X11KeyCapture capture{display, events, x11Keyboard, hotKeys};
    KeyWindow window;
    KeyCapture::Fate fate = KeyCapture::Fate::Swallowed;
    std::vector<KeyPress> presses;
    std::unique_ptr<KeyCapture::Token> token;
};

TEST_F(X11KeyCaptureTest, ReportsKeysWithTheirModifiersAndWithoutLocks) {
    startCapture();
    EXPECT_THAT(captured({XK_Super_L, XK_Shift_L, XK_Alt_L, XK_Control_L, XK_k}),
                ElementsAre(KeyPress{keyK, 0x1B00}));
    keyboard.press({XK_Caps_Lock});
    EXPECT_THAT(captured({XK_Num_Lock}), ElementsAre(KeyPress{std::nullopt, 0}));
    EXPECT_THAT(captured({XK_Super_L, XK_k}), ElementsAre(KeyPress{keyK, 0x0100}));
    EXPECT_THAT(captured({XK_Num_Lock}), ElementsAre(KeyPress{std::nullopt, 0}));
    keyboard.press({XK_Caps_Lock});
    EXPECT_THAT(captured({XK_Control_L, XK_Shift_L}), IsEmpty());
    EXPECT_THAT(captured({XK_Control_L, XK_Menu}), ElementsAre(KeyPress{110, 0x1000}));
    EXPECT_THAT(captured({XK_Control_L, XK_Pause}), ElementsAre(KeyPress{std::nullopt, 0x1000}));
    EXPECT_THAT(window.typed, IsEmpty());
}

TEST_F(X11KeyCaptureTest, HotKeysOfTheLauncherAndOfOthersAreCapturedInstead) {
    int hotKeyPresses = 0;
    const auto handler = hotKeys.installHandler([&](HotKeyIdentity) { ++hotKeyPresses; });
    const auto registration = hotKeys.registerHotKey(space, HotKeyModifier::control, {1, 1});
    const ForeignHotKey foreign(qgetenv("DISPLAY"), XK_k, XCB_MOD_MASK_CONTROL);
    ASSERT_TRUE(foreign.isHeld());

    startCapture();
    EXPECT_TRUE(desktop.isKeyboardGrabbed());
    EXPECT_THAT(captured({XK_Control_L, XK_space}), ElementsAre(KeyPress{space, 0x1000}));
    EXPECT_THAT(captured({XK_Control_L, XK_k}), ElementsAre(KeyPress{keyK, 0x1000}));
    EXPECT_EQ(hotKeyPresses, 0);

    token.reset();
    EXPECT_TRUE(waitUntil([this] { return !desktop.isKeyboardGrabbed(); }));
    keyboard.press({XK_Control_L, XK_space});
    EXPECT_TRUE(waitUntil([&] { return hotKeyPresses == 1; }));
}

TEST_F(X11KeyCaptureTest, ANewHotKeyIsNotPressedByTheKeyThatRecordedIt) {
    int hotKeyPresses = 0;
    const auto handler = hotKeys.installHandler([&](HotKeyIdentity) { ++hotKeyPresses; });
    std::unique_ptr<GlobalHotKeys::Registration> registration;
    token = capture.capture(window, [&](const KeyPress& press) {
        token.reset();
        registration = hotKeys.registerHotKey(press.keyCode.value(), press.modifiers, {1, 1});
        return KeyCapture::Fate::Swallowed;
    });
    keyboard.hold(XK_Control_L);
    keyboard.hold(XK_k);
    // The server begins to repeat a held key after 660 ms.
    waitUntil([&] { return hotKeyPresses > 0; }, std::chrono::milliseconds(1000));
    EXPECT_EQ(hotKeyPresses, 0);

    keyboard.release(XK_k);
    keyboard.hold(XK_k);
    EXPECT_TRUE(waitUntil([&] { return hotKeyPresses == 1; }));
}

TEST_F(X11KeyCaptureTest, AKeyThatIsAlreadyDownCountsFromItsNextPress) {
    keyboard.hold(XK_Return);
    startCapture();
    waitUntil([this] { return !presses.empty(); }, std::chrono::milliseconds(1000));
    EXPECT_THAT(presses, IsEmpty());

    keyboard.release(XK_Return);
    // No hand presses again within the millisecond, as a repeat does.
    QTest::qWait(5);
    EXPECT_THAT(captured({XK_Return}), ElementsAre(KeyPress{36, 0}));
}

TEST_F(X11KeyCaptureTest, OnlyWhatTheHandlerPassesOnReachesTheWindow) {
    startCapture();
    captured({XK_k});
    fate = KeyCapture::Fate::PassedOn;
    captured({XK_Escape});
    EXPECT_TRUE(waitUntil([this] { return !window.typed.isEmpty(); }));
    EXPECT_THAT(window.typed, ElementsAre(Qt::Key_Escape));
}

} // namespace
} // namespace quorvantel::platform
