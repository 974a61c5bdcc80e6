#include "platform/linux/x11/X11PanelKeyboard.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/ForeignGrab.h"
#include "support/Keyboard.h"
#include "support/UnmanagedWindow.h"
#include "support/XDesktop.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <optional>

namespace quorvantel::platform {
namespace {

using testing::ForeignGrab;
using testing::Keyboard;
using testing::UnmanagedWindow;
using testing::waitUntil;
using testing::XConnection;
using testing::XDesktop;

class X11PanelKeyboardTest : public ::testing::Test {
protected:
    X11PanelKeyboardTest() { focus(client); }

    void focus(const QWindow& window) {
        xcb_set_input_focus(connection.get(), XCB_INPUT_FOCUS_PARENT,
                            static_cast<xcb_window_t>(window.winId()), XCB_CURRENT_TIME);
        connection.synchronize();
    }

    bool hasFocus(const QWindow& window) const {
        return desktop.inputFocus() == static_cast<xcb_window_t>(window.winId());
    }

    void expectTypingReaches(const UnmanagedWindow& window) {
        const int before = window.presses;
        keyboard.press({XK_a});
        EXPECT_TRUE(waitUntil([&] { return window.presses == before + 1; }));
    }

    XConnection connection;
    XDesktop desktop{connection};
    Keyboard keyboard{connection};
    X11Display display = X11Display::current().value();
    X11EventDispatcher events;
    X11Keyboard x11Keyboard{display, events};
    X11PanelKeyboard panelKeyboard{display, events, x11Keyboard};
    UnmanagedWindow client{QRect(0, 0, 100, 100)};
    UnmanagedWindow panel{QRect(200, 0, 100, 100)};
};

TEST_F(X11PanelKeyboardTest, TheGrabIsTriedAgainWhileAnotherClientHoldsTheKeyboard) {
    {
        const ForeignGrab menu(qgetenv("DISPLAY"));
        panelKeyboard.take(panel, [] {});
        EXPECT_TRUE(panelKeyboard.decidesAboutTyping());
    }
    EXPECT_TRUE(waitUntil([this] { return desktop.isKeyboardGrabbed(); }));
    EXPECT_TRUE(hasFocus(client));
    expectTypingReaches(panel);
    panelKeyboard.release();
    expectTypingReaches(client);
}

TEST_F(X11PanelKeyboardTest, AKeyboardThatStaysGrabbedMakesThePanelTakeTheFocusAndReturnIt) {
    {
        const ForeignGrab menu(qgetenv("DISPLAY"));
        panelKeyboard.take(panel, [] {});
        EXPECT_TRUE(waitUntil([this] { return hasFocus(panel); }));
    }
    EXPECT_FALSE(panelKeyboard.decidesAboutTyping());
    expectTypingReaches(panel);
    panelKeyboard.release();
    EXPECT_TRUE(waitUntil([this] { return hasFocus(client); }));
    expectTypingReaches(client);
}

TEST_F(X11PanelKeyboardTest, AHeldKeyDoesNotRepeatItselfIntoTheApplicationInFront) {
    panelKeyboard.take(panel, [] {});
    ASSERT_TRUE(waitUntil([this] { return desktop.isKeyboardGrabbed(); }));
    keyboard.hold(XK_Return);
    ASSERT_TRUE(waitUntil([this] { return panel.presses > 2; })) << "it does not repeat at all";
    keyboard.release(XK_Return);
    // What is still under way arrives, and is no part of what follows.
    waitUntil([] { return false; }, std::chrono::milliseconds(100));
    panel.presses = 0;
    keyboard.hold(XK_Return);
    ASSERT_TRUE(waitUntil([this] { return panel.presses > 0; }));
    // As after a launch: the press is the first, and repeating would begin a while after it.
    panelKeyboard.release();
    EXPECT_FALSE(waitUntil([this] { return client.presses > 0; }, std::chrono::milliseconds(1000)));
    keyboard.release(XK_Return);
    expectTypingReaches(client);
}

} // namespace
} // namespace quorvantel::platform
