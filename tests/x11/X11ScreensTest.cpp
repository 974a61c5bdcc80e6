#include "platform/linux/x11/X11Screens.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/Monitors.h"
#include "support/Pointer.h"
#include "support/WaitUntil.h"
#include "support/XConnection.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

#include <array>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using testing::XConnection;

/// Plays the window manager that tells of one window, and the bar that reserves room with it.
class Bar {
public:
    explicit Bar(const XConnection& connection)
        : m_connection(connection), m_window(xcb_generate_id(connection.get())) {
        xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, m_window, connection.root(), 0, 0,
                          1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        setProperty(connection.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, std::array{m_window});
    }
    ~Bar() {
        setProperty(m_connection.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW,
                    std::array<std::uint32_t, 0>{});
    }

    void reserve(const std::array<std::uint32_t, 12>& strut) {
        setProperty(m_window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, strut);
        // As window managers do when a strut changed.
        setProperty(m_connection.root(), "_NET_WORKAREA", XCB_ATOM_CARDINAL,
                    std::array<std::uint32_t, 4>{0, 0, 1, 1});
    }

private:
    template <std::size_t size>
    void setProperty(xcb_window_t window, const char* name, xcb_atom_t type,
                     const std::array<std::uint32_t, size>& values) {
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window,
                            m_connection.atom(name), type, 32, size, values.data());
        m_connection.synchronize();
    }

    const XConnection& m_connection;
    xcb_window_t m_window;
};

TEST(X11ScreensTest, LeavesOutTheBarsOfEachScreen) {
    const XConnection connection;
    testing::setMonitors(qgetenv("DISPLAY"), {QRect(0, 0, 800, 600), QRect(800, 0, 480, 720)});
    ASSERT_TRUE(waitUntil([] { return QGuiApplication::screens().size() == 2; }));
    X11EventDispatcher events;
    const X11Screens screens(X11Display::current().value(), events);
    EXPECT_EQ(screens.all()[1].visibleFrame, screens.all()[1].frame);
    QCoreApplication::processEvents();
    int changes = 0;
    QObject::connect(&screens, &Screens::changed, [&changes] { ++changes; });

    Bar bar(connection);
    // 30 pixels along the top of the second screen.
    bar.reserve({0, 0, 30, 0, 0, 0, 0, 0, 800, 1279, 0, 0});
    EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
    // The same once more is none.
    bar.reserve({0, 0, 30, 0, 0, 0, 0, 0, 800, 1279, 0, 0});
    // Upward, the second screen reaches from 600 - 720 below the first one's lower edge.
    EXPECT_EQ(screens.all()[1].frame, QRectF(800, -120, 480, 720));
    EXPECT_EQ(screens.all()[1].visibleFrame, QRectF(800, -120, 480, 690));
    EXPECT_EQ(screens.all()[0].visibleFrame, QRectF(0, 0, 800, 600));
    // The right edge of a screen belongs to the next one; below the first there is none.
    testing::Pointer pointer(connection);
    for (const auto& [place, index] : {std::pair(QPoint(799, 599), 0), std::pair(QPoint(800, 0), 1),
                                       std::pair(QPoint(100, 650), 0)}) {
        pointer.moveTo(place);
        EXPECT_EQ(screens.target(), screens.all()[static_cast<std::size_t>(index)]);
    }
    EXPECT_EQ(screens.underMouse(), std::nullopt);
    EXPECT_EQ(screenWithId(screens.all()[1].id, screens.all()), screens.all()[1]);
    EXPECT_EQ(screens.toWindowGeometry(screens.all()[1].visibleFrame), QRect(800, 30, 480, 690));

    bar.reserve({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_TRUE(waitUntil([&] { return changes > 1; }));
    EXPECT_EQ(screens.all()[1].visibleFrame.height(), 720);
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace quorvantel::platform
