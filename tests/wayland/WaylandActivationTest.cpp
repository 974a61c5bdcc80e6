#include "platform/linux/wayland/WaylandWindowActivator.h"
#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using testing::WaylandClient;
using testing::WaylandCompositor;
using testing::WaylandInput;

class Window : public QRasterWindow {
public:
    Window() {
        resize(300, 200);
        show();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).fillRect(QRect({}, size()), Qt::white);
    }
};

/// On a real compositor.
class WaylandActivationTest : public ::testing::TestWithParam<const char*> {
protected:
    WaylandActivationTest() {
        compositor.enter();
        application.emplace(argc, argv.data());
        connection = WaylandConnection::ofToolkit();
        serial.emplace(*connection);
        activation.emplace(*connection, *serial);
    }

    QByteArray token() {
        std::optional<QByteArray> answer;
        activation->begin("Entry", "org.example.Entry.desktop", "",
                          [&answer](const QByteArray& id) { answer = id; });
        waitUntil([&answer] { return answer.has_value(); });
        return answer.value_or(QByteArray());
    }

    WaylandCompositor compositor{{.program = QString::fromLatin1(GetParam())}};
    int argc = 3;
    std::array<char*, 4> argv{const_cast<char*>("test"), const_cast<char*>("-platform"),
                              const_cast<char*>("wayland"), nullptr};
    std::optional<QGuiApplication> application;
    std::unique_ptr<WaylandConnection> connection;
    std::optional<WaylandUserSerial> serial;
    std::optional<WaylandActivation> activation;
};

TEST_P(WaylandActivationTest, BringsAWindowBackByTheTokenOfADeedAndByShowingItAnew) {
    WaylandInput input(compositor);
    Window window;
    ASSERT_TRUE(waitUntil([&] { return window.isActive(); }));
    const std::uint32_t entrance = serial->last();
    input.type("a");
    ASSERT_TRUE(waitUntil([&] { return serial->last() != entrance; }));
    const QByteArray own = token();
    EXPECT_FALSE(own.isEmpty());

    if (compositor.options().program == QStringLiteral("sway")) {
        compositor.command(QStringLiteral("focus_on_window_activation focus"));
    }
    const WaylandClient other(compositor);
    ASSERT_TRUE(waitUntil([&] { return !window.isActive(); }));
    activation->during({.startupId = {}, .activationToken = own},
                       [&] { activation->activate(window); });
    EXPECT_TRUE(waitUntil([&] { return window.isActive(); }));

    // Without a token, since nobody called and the launcher has no keyboard.
    const WaylandClient another(compositor);
    ASSERT_TRUE(waitUntil([&] { return !window.isActive(); }));
    WaylandWindowActivator(*activation).activate(window);
    EXPECT_TRUE(waitUntil([&] { return window.isActive() && !another.isActive(); }));
}

INSTANTIATE_TEST_SUITE_P(On, WaylandActivationTest, ::testing::Values("sway", "kwin_wayland"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace quorvantel::platform
