#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/ForeignHotKey.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>

namespace quorvantel {
namespace {

using ::testing::Contains;
using ::testing::Not;
using namespace ::quorvantel::testing;

class SettingsTest : public ::testing::Test {
protected:
    void waitForActive(const QByteArray& title) {
        ASSERT_TRUE(waitUntil([&] { return session.desktop().activeTitle() == title; }))
            << "in front is \"" << session.desktop().activeTitle().constData() << '"';
    }

    void openSettings() {
        session.summon();
        press({XK_Super_L, XK_comma});
        waitForActive("Quorvantel Settings");
        EXPECT_TRUE(session.waitForDismissal());
    }

    void press(const std::vector<xcb_keysym_t>& chord) { session.keyboard().press(chord); }

    bool waitForPanel() {
        return waitUntil([this] { return session.panel().has_value(); });
    }

    /// Whether the panel comes up with this background.
    bool showsPanelIn(QRgb color) {
        session.summon();
        // Between the edge of the panel and its search field.
        const QRect point(session.panel()->topLeft() + QPoint(320, 5), QSize(1, 1));
        return waitUntil([&] { return session.desktop().screenshot(point).pixel(0, 0) == color; });
    }

    LauncherSession session;
};

TEST_F(SettingsTest, TheCommaKeyOpensThemWhateverShiftMakesOfIt) {
    session.start();
    const auto expectOpensSettings = [this](const QString& layout, xcb_keysym_t command,
                                            xcb_keysym_t comma) {
        session.setKeyboardLayout({layout});
        session.summon();
        press({command, XK_Shift_L, comma});
        waitForActive("Quorvantel Settings");
        EXPECT_TRUE(session.waitForDismissal());
        session.setKeyboardLayout({QStringLiteral("us")});
        press({XK_Control_L, XK_w});
        ASSERT_TRUE(
            waitUntil([this] { return session.desktop().activeTitle() != "Quorvantel Settings"; }));
    };
    for (const auto command : std::initializer_list<xcb_keysym_t>{XK_Super_L, XK_Control_L}) {
        for (const char* const layout : {"us", "de", "fr", "hu", "ru"}) {
            SCOPED_TRACE(layout);
            expectOpensSettings(QString::fromLatin1(layout), command, XK_comma);
        }
        SCOPED_TRACE("the Russian letter on an American comma");
        expectOpensSettings(QStringLiteral("ru,us"), command, XK_Cyrillic_be);
    }
}

TEST_F(SettingsTest, ARecordedHotKeyReplacesTheOldOneForGood) {
    constexpr std::uint16_t altAndSuper = XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
    session.start();
    openSettings();
    press({XK_Tab});
    const auto record = [this](const auto& pressKeys) {
        press({XK_space});
        ASSERT_TRUE(waitUntil([this] { return session.desktop().isKeyboardGrabbed(); }));
        pressKeys();
        EXPECT_TRUE(waitUntil([this] { return !session.desktop().isKeyboardGrabbed(); }));
        EXPECT_FALSE(session.panel());
    };
    record([this] { session.pressDefaultHotKey(); });
    record([this] { press({XK_Control_L, XK_Shift_L, XK_k}); });

    press({XK_Control_L, XK_Shift_L, XK_k});
    EXPECT_TRUE(waitForPanel()) << session.output().constData();
    EXPECT_TRUE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());

    ASSERT_TRUE(session.terminate());
    session.start();
    press({XK_Control_L, XK_Shift_L, XK_k});
    EXPECT_TRUE(waitForPanel());
    EXPECT_TRUE(ForeignHotKey(session.display(), XK_space, altAndSuper).isHeld());
}

TEST_F(SettingsTest, TheGearOpensAWindowOfTheTaskListThatComesBackToTheFront) {
    session.start();
    session.summon();
    const QRect panel = *session.panel();
    session.pointer().click(QPoint(panel.right() - 27, panel.top() + 28));
    waitForActive("Quorvantel Settings");
    const xcb_window_t settings = session.desktop().activeWindow();
    const XConnection& connection = session.connection();
    EXPECT_THAT(connection.property(connection.root(), "_NET_CLIENT_LIST"), Contains(settings));
    EXPECT_THAT(connection.property(settings, "_NET_WM_STATE"),
                Not(Contains(connection.atom("_NET_WM_STATE_SKIP_TASKBAR"))));

    const ClientWindow other(session.display(), QRect(40, 640, 400, 120));
    EXPECT_EQ(session.desktop().activeWindow(), other.id());
    openSettings();
    EXPECT_EQ(session.desktop().activeWindow(), settings);

    press({XK_Control_L, XK_w});
    EXPECT_TRUE(waitUntil([&] { return session.desktop().activeWindow() == other.id(); }));
    EXPECT_TRUE(session.isRunning());
    openSettings();
    press({XK_Control_L, XK_q});
    EXPECT_TRUE(waitUntil([this] { return !session.isRunning(); }));
}

TEST_F(SettingsTest, TheyComeInTheMiddleAndGoBackFromTheWholeScreenToTheirSize) {
    session.start();
    const XConnection& connection = session.connection();
    const auto frame = [&] {
        const xcb_window_t window = session.desktop().activeWindow();
        const auto extents = connection.property(window, "_NET_FRAME_EXTENTS");
        const QRect content = session.desktop().geometry(window).value_or(QRect());
        return extents.size() == 4
                   ? content.adjusted(-static_cast<int>(extents[0]), -static_cast<int>(extents[2]),
                                      static_cast<int>(extents[1]), static_cast<int>(extents[3]))
                   : QRect();
    };
    const QPoint centre =
        QRect(0, 0, connection.screen().width_in_pixels, connection.screen().height_in_pixels)
            .center();
    const auto isCentred = [&] { return (frame().center() - centre).manhattanLength() <= 2; };
    openSettings();
    EXPECT_TRUE(waitUntil(isCentred)) << frame().center().y() << " instead of " << centre.y();
    const QSize size = frame().size();

    const auto setMaximised = [&](bool isMaximised) {
        connection.request(session.desktop().activeWindow(), "_NET_WM_STATE",
                           {isMaximised ? 1U : 0U, connection.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                            connection.atom("_NET_WM_STATE_MAXIMIZED_HORZ")});
    };
    setMaximised(true);
    ASSERT_TRUE(waitUntil([&] { return frame().height() > size.height(); }));
    press({XK_Control_L, XK_w});
    ASSERT_TRUE(
        waitUntil([this] { return session.desktop().activeTitle() != "Quorvantel Settings"; }));
    openSettings();
    EXPECT_TRUE(waitUntil([&] { return frame().height() > size.height(); }));
    setMaximised(false);
    EXPECT_TRUE(waitUntil([&] { return frame().size() == size && isCentred(); }))
        << frame().width() << 'x' << frame().height() << " at " << frame().x() << ' '
        << frame().y();
}

TEST_F(SettingsTest, DarkAndTealAreThePanelsForGood) {
    session.start();
    openSettings();
    for (const auto key :
         std::initializer_list<xcb_keysym_t>{XK_Down, XK_Down, XK_Tab, XK_Left, XK_Tab, XK_Right}) {
        press({key});
    }
    EXPECT_TRUE(showsPanelIn(qRgb(0x0F, 0x1C, 0x1A)));
    ASSERT_TRUE(session.terminate());
    session.start();
    EXPECT_TRUE(showsPanelIn(qRgb(0x0F, 0x1C, 0x1A)));
}

} // namespace
} // namespace quorvantel
