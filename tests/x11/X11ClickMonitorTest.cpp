#include "platform/linux/x11/X11ClickMonitor.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/Pointer.h"
#include "support/UnmanagedWindow.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::Pointer;
using testing::UnmanagedWindow;
using testing::waitUntil;
using testing::XConnection;

class X11ClickMonitorTest : public ::testing::Test {
protected:
    void reparentOwn(xcb_window_t frame) {
        xcb_reparent_window(connection.get(), static_cast<xcb_window_t>(own.winId()), frame, 0, 0);
        connection.synchronize();
    }

    /// Another client's window.
    xcb_window_t createForeign(const QRect& place) {
        const auto window = xcb_generate_id(connection.get());
        xcb_create_window(
            connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(),
            static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
            static_cast<std::uint16_t>(place.width()), static_cast<std::uint16_t>(place.height()),
            0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(connection.get(), window);
        connection.synchronize();
        return window;
    }

    /// Whether a click that the pointer jumps to is reported rather than given to the own window.
    bool isReported(QPoint place, Pointer::Button button = Pointer::Button::Left) {
        const int reportsBefore = reports;
        const int clicksBefore = own.clicks;
        pointer.click(place, button);
        EXPECT_TRUE(waitUntil([&] { return reports + own.clicks > reportsBefore + clicksBefore; }));
        return reports > reportsBefore;
    }

    XConnection connection;
    Pointer pointer{connection};
    X11Display display = X11Display::current().value();
    X11EventDispatcher events;
    X11RawEvents rawEvents{display, events};
    X11ClickMonitor monitor{display, events, rawEvents};
    UnmanagedWindow own{QRect(0, 0, 100, 100)};
    int reports = 0;
    std::unique_ptr<ClickMonitor::Token> token = monitor.observe([this] { ++reports; });
};

TEST_F(X11ClickMonitorTest, APressThatThePointerHasLeftTheWindowAfterIsStillTheWindows) {
    pointer.moveTo({50, 50});
    pointer.hold();
    pointer.moveTo({150, 50});
    pointer.release();
    EXPECT_TRUE(waitUntil([this] { return own.clicks == 1; }));
    EXPECT_TRUE(isReported({150, 50}, Pointer::Button::Right));
    EXPECT_EQ(reports, 1);
}

TEST_F(X11ClickMonitorTest, LooksThroughTheFrameThatAWindowManagerPutsAroundAWindow) {
    reparentOwn(createForeign(QRect(400, 0, 200, 200)));
    EXPECT_FALSE(isReported({450, 50}));
    EXPECT_TRUE(isReported({550, 150})) << "of the frame itself";
    reparentOwn(connection.root());
}

} // namespace
} // namespace quorvantel::platform
