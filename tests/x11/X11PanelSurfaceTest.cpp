#include "platform/linux/x11/X11EventDispatcher.h"
#include "platform/linux/x11/X11PanelHost.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

/// Counts what the toolkit tells top-level windows alone.
class Content : public QWindow {
public:
    int fontChanges = 0;

protected:
    bool event(QEvent* event) override {
        fontChanges += event->type() == QEvent::ApplicationFontChange ? 1 : 0;
        return QWindow::event(event);
    }
};

TEST(X11PanelSurfaceTest, TellsTheContentWhatItsWindowIsToldAndLeavesItBehind) {
    const X11Display display = X11Display::current().value();
    X11EventDispatcher events;
    X11Keyboard keyboard(display, events);
    X11PanelKeyboard panelKeyboard(display, events, keyboard);
    X11WindowBackdrop backdrop(display, events);
    X11PanelHost host(panelKeyboard, backdrop);
    Content content;
    content.create();
    auto surface = host.makeSurface({content, {300, 200}, 12});
    int requests = 0;
    QObject::connect(surface.get(), &PanelSurface::closeRequested, [&requests] { ++requests; });
    surface->show();
    QEvent fontChange(QEvent::ApplicationFontChange);
    QCoreApplication::sendEvent(content.parent(), &fontChange);
    EXPECT_EQ(content.fontChanges, 1);
    content.parent()->close();
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(surface->isVisible()) << "its owner decides";
    surface.reset();
    EXPECT_FALSE(content.isVisible());
    EXPECT_EQ(content.parent(), nullptr);
}

} // namespace
} // namespace quorvantel::platform
