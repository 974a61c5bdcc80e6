#include "platform/linux/x11/X11ClickMonitor.h"

#include "support/Pointer.h"
#include "support/WaitUntil.h"

#include <QWindow>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::Pointer;
using testing::waitUntil;
using testing::XConnection;

/// A window that counts the clicks that it gets.
class ClickWindow : public QWindow {
public:
    explicit ClickWindow(const QRect& place) {
        setFlags(Qt::Tool | Qt::BypassWindowManagerHint);
        setGeometry(place);
        show();
        waitUntil([this] { return isExposed(); });
    }

    int clicks = 0;

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override { ++clicks; }
};

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

    /// Whether a click that the pointer jumps to is reported. The presses arrive in order, so those
    /// before a click into the own window have been dealt with when that one gets it.
    bool isReported(QPoint place, Pointer::Button button = Pointer::Button::Left) {
        const int before = reports;
        pointer.click(place, button);
        EXPECT_TRUE(waitUntil([this] { return reports + own.clicks > seen; }));
        seen = reports + own.clicks;
        return reports > before;
    }

    XConnection connection;
    Pointer pointer{connection};
    X11Display display = X11Display::current().value();
    X11RawEvents rawEvents{display};
    X11ClickMonitor monitor{display, rawEvents};
    ClickWindow own{QRect(0, 0, 100, 100)};
    int reports = 0;
    int seen = 0;
    std::unique_ptr<ClickMonitor::Token> token = monitor.observe([this] { ++reports; });
};

TEST_F(X11ClickMonitorTest, ReportsClicksOnTheDesktopAndOnOthersWhateverThePointerCameFrom) {
    createForeign(QRect(200, 0, 100, 100));
    const QPoint inOwn(50, 50);
    const QPoint inForeign(250, 50);
    const QPoint onDesktop(150, 50);
    for (const QPoint from : {inOwn, inForeign, onDesktop}) {
        pointer.moveTo(from);
        EXPECT_TRUE(isReported(onDesktop));
        pointer.moveTo(from);
        EXPECT_TRUE(isReported(inForeign, Pointer::Button::Right));
        pointer.moveTo(from);
        EXPECT_FALSE(isReported(inOwn));
    }
}

TEST_F(X11ClickMonitorTest, LooksThroughTheFrameThatAWindowManagerPutsAroundAWindow) {
    reparentOwn(createForeign(QRect(400, 0, 200, 200)));
    EXPECT_FALSE(isReported({450, 50}));
    EXPECT_TRUE(isReported({550, 150})) << "of the frame itself";
    reparentOwn(connection.root());
}

} // namespace
} // namespace quorvantel::platform
