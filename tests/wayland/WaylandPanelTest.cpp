#include "platform/linux/wayland/WaylandPanelHost.h"
#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QWindow>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace quorvantel::testing {
namespace {

using platform::PanelPlace;
using platform::PanelSurface;

constexpr QRgb panelColor = 0xff204060;
constexpr QSize output(800, 600);
constexpr QRect panelFrame(80, 100, 640, 56);
constexpr QPoint inPanel(600, 110);

/// What a host needs: a field, which gets the letters.
class Content : public QWidget {
public:
    explicit Content(platform::PanelHost& host) : QWidget(nullptr, host.windowFlags()) {
        setAttribute(Qt::WA_TranslucentBackground);
        m_field.setStyleSheet(QStringLiteral("border: 0; background: #204060"));
        setFocusProxy(&m_field);
        winId();
        m_surface = host.makeSurface({*windowHandle(), {640, 400}, 12});
        connect(m_surface.get(), &PanelSurface::geometryChanged, this, [this] { follow(); });
        place({{}, panelFrame});
    }

    PanelSurface& surface() { return *m_surface; }
    QString text() const { return m_field.text(); }

    void place(const PanelPlace& place) {
        m_surface->setPlace(place);
        m_field.resize(place.frame.size());
    }

    void summon() {
        m_field.clear();
        m_surface->show();
        m_field.setFocus();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        m_surface->paintAround(painter);
    }

private:
    void follow() {
        m_field.move(m_surface->contentOrigin());
        update();
    }

    QLineEdit m_field{this};
    std::unique_ptr<PanelSurface> m_surface;
};

/// One desktop with an application in front, and the panel's host.
struct Desktop {
    explicit Desktop(const WaylandCompositor::Options& options) : compositor(options) {
        compositor.enter();
        platform::WaylandPanelHost::prepareToolkit();
        static int argumentCount = 1;
        static char name[] = "wayland_tests";
        static char* arguments[] = {name, nullptr};
        application = std::make_unique<QApplication>(argumentCount, arguments);
        connection = platform::WaylandConnection::ofToolkit();
        keyboard = std::make_unique<platform::WaylandKeyboard>(*connection);
        host = std::make_unique<platform::WaylandPanelHost>(*connection, *keyboard);
        content = std::make_unique<Content>(*host);
    }

    QRgb pixel(const QPoint& place) const {
        const QImage image = compositor.screenshot();
        const double scale = compositor.options().scale;
        return image.pixel((QPointF(place) * scale).toPoint());
    }

    bool showsPanelAt(const QPoint& place) const {
        return waitUntil([&] { return pixel(place) == panelColor; });
    }

    WaylandCompositor compositor;
    WaylandInput input{compositor};
    WaylandClient client{compositor};
    std::unique_ptr<QApplication> application;
    std::unique_ptr<platform::WaylandConnection> connection;
    std::unique_ptr<platform::WaylandKeyboard> keyboard;
    std::unique_ptr<platform::WaylandPanelHost> host;
    std::unique_ptr<Content> content;
};

class WaylandPanelTest : public ::testing::TestWithParam<const char*> {
protected:
    QString program() const { return QString::fromLatin1(GetParam()); }
};

TEST_P(WaylandPanelTest, TakesTypingWhileItIsShownAndReturnsIt) {
    Desktop desktop({.program = program(), .pixels = output});
    Content& panel = *desktop.content;
    EXPECT_TRUE(desktop.client.isActive());
    for (int showing = 1; showing <= 3; ++showing) {
        // Before the panel has the keyboard.
        desktop.input.setKeyDown(KEY_Q, true);
        panel.summon();
        ASSERT_TRUE(waitUntil([&] { return panel.isActiveWindow(); }));
        desktop.input.setKeyDown(KEY_Q, false);
        desktop.input.type("fire");
        EXPECT_TRUE(waitUntil([&] { return panel.text() == QStringLiteral("qfire"); }))
            << panel.text().toStdString();
        EXPECT_TRUE(desktop.showsPanelAt(inPanel));
        panel.surface().hide();
        ASSERT_TRUE(
            waitUntil([&] { return desktop.client.isActive() && !panel.isActiveWindow(); }));
        desktop.input.type("x");
        EXPECT_TRUE(waitUntil(
            [&] { return desktop.client.typed() == QByteArray("qx").repeated(showing); }));
        EXPECT_NE(desktop.pixel(inPanel), panelColor);
    }
}

TEST_P(WaylandPanelTest, LosesTheKeyboardToAClickElsewhereThatReachesItsTarget) {
    Desktop desktop({.program = program(), .pixels = output});
    Content& panel = *desktop.content;
    const QSignalSpy lost(&panel.surface(), &PanelSurface::keyboardLost);
    panel.summon();
    ASSERT_TRUE(waitUntil([&] { return panel.isActiveWindow(); }));
    desktop.input.click(inPanel);
    desktop.input.type("a");
    EXPECT_TRUE(waitUntil([&] { return panel.text() == QStringLiteral("a"); }));
    EXPECT_EQ(lost.count(), 0);

    // Inside the content's window, which is transparent there.
    desktop.input.click({400, 300});
    EXPECT_TRUE(waitUntil([&] { return lost.count() == 1 && desktop.client.clicks() == 1; }));
    panel.surface().hide();
    EXPECT_TRUE(waitUntil([&] { return desktop.client.isActive(); }));
    EXPECT_EQ(lost.count(), 1);

    // On the bare desktop.
    if (program() == QStringLiteral("sway")) {
        desktop.compositor.command(QStringLiteral("workspace 2"));
    }
    panel.summon();
    ASSERT_TRUE(waitUntil([&] { return panel.isActiveWindow(); }));
    EXPECT_TRUE(waitUntil([&] {
        desktop.input.click({20, 580});
        return lost.count() == 2;
    }));
}

TEST_P(WaylandPanelTest, GrowsAndMovesWithItsTopEdgeExactAtEveryScale) {
    for (const double scale : {1.5, 2.0}) {
        SCOPED_TRACE(scale);
        Desktop desktop({.program = program(), .pixels = output * scale, .scale = scale});
        Content& panel = *desktop.content;
        panel.summon();
        EXPECT_TRUE(desktop.showsPanelAt(inPanel));
        const auto showsWhole = [&desktop](const QRect& frame) {
            const QPoint below(0, frame.height());
            const QPoint top(600, frame.top());
            return desktop.showsPanelAt(top + QPoint(0, 2)) &&
                   desktop.showsPanelAt(top + below - QPoint(0, 2)) &&
                   desktop.pixel(top - QPoint(0, 2)) != panelColor &&
                   desktop.pixel(top + below + QPoint(0, 2)) != panelColor;
        };
        const QRect tall(panelFrame.topLeft(), QSize(640, 300));
        panel.place({{}, tall});
        EXPECT_TRUE(showsWhole(tall));
        panel.place({{}, tall.translated(40, 120)});
        EXPECT_TRUE(showsWhole(tall.translated(40, 120)));
    }
}

TEST_P(WaylandPanelTest, IsShownOnTheOutputThatTheCompositorPicksOrOnThatOfItsPlace) {
    Desktop desktop({.program = program(), .pixels = output, .outputs = 2});
    Content& panel = *desktop.content;
    const QSignalSpy chosen(&panel.surface(), &PanelSurface::screenChosen);
    for (const int picked : {1, 0, 1}) {
        const QPoint origin(picked * output.width(), 0);
        desktop.input.click(origin + QPoint(400, 550));
        panel.summon();
        EXPECT_TRUE(desktop.showsPanelAt(origin + inPanel)) << picked;
        EXPECT_TRUE(waitUntil(
            [&] { return panel.windowHandle()->screen()->geometry().topLeft() == origin; }));
        for (const QScreen* const screen : QApplication::screens()) {
            panel.place({{{screen->name()}}, panelFrame});
            EXPECT_TRUE(desktop.showsPanelAt(screen->geometry().topLeft() + inPanel));
        }
        panel.surface().hide();
        panel.place({{}, panelFrame});
    }
    EXPECT_GE(chosen.count(), 2);
}

TEST(WaylandPanelOnSwayTest, OutlivesItsOutput) {
    const WaylandCompositor host({.pixels = {1280, 800}});
    Desktop desktop({.pixels = {640, 800}, .outputs = 2, .host = &host});
    Content& panel = *desktop.content;
    QSignalSpy closings(&panel.surface(), &PanelSurface::closeRequested);
    for (const auto& name : {QStringLiteral("WL-1"), QStringLiteral("WL-2")}) {
        panel.place({{{name}}, panelFrame});
        panel.summon();
        ASSERT_TRUE(waitUntil([&] { return panel.isActiveWindow(); }));
        host.command(QStringLiteral("[title=\"%1\"] kill").arg(name));
        EXPECT_TRUE(closings.wait()) << name.toStdString();
        panel.surface().hide();
    }
    panel.place({{}, panelFrame});
    panel.summon();
    EXPECT_FALSE(panel.surface().isVisible());
    desktop.compositor.command(QStringLiteral("create_output"));
    EXPECT_TRUE(waitUntil([&] {
        panel.summon();
        return panel.surface().isVisible();
    }));
    ASSERT_TRUE(waitUntil([&] { return panel.isActiveWindow(); }));
    desktop.input.type("a");
    EXPECT_TRUE(waitUntil([&] { return panel.text() == QStringLiteral("a"); }));
}

TEST(WaylandPanelOnKWinTest, DoesWithoutACompositorThatDoesNotAnswer) {
    Desktop desktop({.program = QStringLiteral("kwin_wayland"), .pixels = output});
    Content& panel = *desktop.content;
    panel.summon();
    EXPECT_TRUE(desktop.showsPanelAt(inPanel));
    panel.surface().hide();
    desktop.compositor.signal(SIGSTOP);
    panel.summon();
    EXPECT_FALSE(panel.surface().isVisible());
    desktop.compositor.signal(SIGCONT);
    panel.summon();
    EXPECT_TRUE(desktop.showsPanelAt(inPanel));
}

TEST_P(WaylandPanelTest, ShowsAMenuAboveItselfThatTakesClicks) {
    Desktop desktop({.program = program(), .pixels = output});
    Content& panel = *desktop.content;
    panel.summon();
    ASSERT_TRUE(waitUntil([&] { return panel.isActiveWindow(); }));
    const QSignalSpy lost(&panel.surface(), &PanelSurface::keyboardLost);
    QMenu menu;
    menu.setStyleSheet(QStringLiteral("background: #ff0000"));
    const QSignalSpy triggered(menu.addAction(QStringLiteral("Paste")), &QAction::triggered);
    menu.popup(panel.surface().contentOrigin() + QPoint(100, 20));
    const QPoint entry = panelFrame.topLeft() + QPoint(105, 25);
    EXPECT_TRUE(waitUntil([&] { return desktop.pixel(entry) == 0xffff0000; }));
    desktop.input.click(entry + QPoint(20, 5));
    EXPECT_TRUE(waitUntil([&] { return triggered.count() == 1; }));
    EXPECT_TRUE(waitUntil([&] { return QApplication::focusWindow() == panel.windowHandle(); }));
    EXPECT_EQ(lost.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(On, WaylandPanelTest, ::testing::Values("sway", "kwin_wayland"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace quorvantel::testing
