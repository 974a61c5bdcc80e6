#include "platform/linux/x11/X11KeyboardGuard.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "platform/linux/x11/X11HotKeys.h"
#include "platform/linux/x11/X11PanelKeyboard.h"
#include "support/Keyboard.h"
#include "support/UnmanagedWindow.h"
#include "support/XDesktop.h"

#include <QCoreApplication>

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <iostream>
#include <optional>
#include <thread>
#include <vector>

namespace quorvantel::platform {
namespace {

using namespace std::chrono_literals;
using testing::Keyboard;
using testing::patience;
using testing::UnmanagedWindow;
using testing::waitUntil;
using testing::XConnection;
using testing::XDesktop;
using testing::XReply;

/// Another application, which has the input focus and reads its keys on a thread of the test's own.
class TypedInto {
public:
    TypedInto() {
        const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
        xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_connection.root(),
                          0, 0, 50, 50, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_EVENT_MASK, &events);
        const std::uint32_t unmanaged = 1;
        xcb_change_window_attributes(m_connection.get(), m_window, XCB_CW_OVERRIDE_REDIRECT,
                                     &unmanaged);
        xcb_map_window(m_connection.get(), m_window);
        m_connection.synchronize();
        xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
        m_connection.synchronize();
    }

    /// Presses a chord and then a letter until it arrives, for what the server kept of them may be
    /// the panel's. Says how long that took; absent when it was longer than is to be borne.
    std::optional<std::chrono::milliseconds> delayAfter(const std::vector<xcb_keysym_t>& chord) {
        using Clock = std::chrono::steady_clock;
        hasArrived();
        m_keyboard.press(chord);
        const auto start = Clock::now();
        while (Clock::now() - start < 1s) {
            m_keyboard.press({XK_a});
            std::this_thread::sleep_for(5ms);
            if (hasArrived()) {
                return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
            }
        }
        return std::nullopt;
    }

private:
    /// Whether the letter is among the events since the last call.
    bool hasArrived() {
        bool result = false;
        m_connection.synchronize();
        while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
            const bool isPress = (event->response_type & 0x7FU) == XCB_KEY_PRESS;
            // Events of keys name theirs in this byte.
            result |= isPress && event->pad0 == m_letter;
        }
        return result;
    }

    XConnection m_connection;
    xcb_keycode_t m_letter = testing::KeyboardMap(m_connection).find(XK_a).keycode;
    Keyboard m_keyboard{m_connection};
    xcb_window_t m_window = xcb_generate_id(m_connection.get());
};

TEST(X11KeyboardGuardTest, NoKeyWaitsForAMainThreadThatIsAway) {
    const X11Display display = X11Display::current().value();
    const XConnection connection;
    const XDesktop desktop(connection);
    X11EventDispatcher events;
    X11RawEvents rawEvents(display, events);
    X11Keyboard x11Keyboard(display, events);
    X11PanelKeyboard panelKeyboard(display, events, x11Keyboard);
    X11HotKeys hotKeys(display, events, rawEvents, x11Keyboard,
                       [&] { return panelKeyboard.decidesAboutTyping(); });
    const X11KeyboardGuard guard(display, [&] { panelKeyboard.reclaim(); });
    UnmanagedWindow panel(QRect(200, 0, 100, 100));
    TypedInto application;
    std::future<std::optional<std::chrono::milliseconds>> delay;
    const auto type = [&](const std::vector<xcb_keysym_t>& chord) {
        delay = std::async(std::launch::async,
                           [&application, chord] { return application.delayAfter(chord); });
    };
    const auto stayAway = [&] { delay.wait(); };
    const auto expectAnswer = [&](const char* place) {
        const auto answer = delay.get();
        ASSERT_TRUE(answer) << place;
        std::cout << "A key waits " << answer->count() << " ms for a main thread " << place
                  << ".\n";
    };

    std::function<void()> onHotKey = stayAway;
    const auto handler =
        hotKeys.installHandler([&](HotKeyIdentity) { std::exchange(onHotKey, nullptr)(); });
    const auto hotKey = hotKeys.registerHotKey(49, HotKeyModifier::control, {0x51, 1});
    type({XK_Control_L, XK_space});
    ASSERT_TRUE(waitUntil([&] { return !onHotKey; }));
    expectAnswer("that is in the handler of the hotkey");

    onHotKey = [] {};
    type({XK_Control_L, XK_space});
    stayAway();
    expectAnswer("that has yet to read the hotkey");
    ASSERT_TRUE(waitUntil([&] { return !onHotKey; }));

    panelKeyboard.take(panel, [] {});
    ASSERT_TRUE(waitUntil([&] { return desktop.isKeyboardGrabbed(); }));
    panel.onKey = stayAway;
    type({XK_x});
    ASSERT_TRUE(waitUntil([&] { return panel.presses > 0 && !panel.onKey; }));
    expectAnswer("that is in the panel");

    // The panel, once it is back, has the keyboard as before.
    ASSERT_TRUE(waitUntil([&] { return desktop.isKeyboardGrabbed(); }));
    const int before = panel.presses;
    Keyboard(connection).press({XK_a});
    EXPECT_TRUE(waitUntil([&] { return panel.presses > before; }));
    panelKeyboard.release();
}

} // namespace
} // namespace quorvantel::platform
