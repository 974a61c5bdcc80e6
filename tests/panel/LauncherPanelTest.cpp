#include "panel/LauncherPanelController.h"
#include "panel/LauncherViewFixture.h"
#include "support/FakePanelHost.h"
#include "support/FakeScreens.h"

#include <QAccessible>
#include <QTest>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

/// A panel in a window that is larger, on a system that neither tells where the mouse is nor which
/// clicks others get.
class LauncherPanelTest : public ::testing::Test {
protected:
    LauncherPanelTest() {
        screens.tells = false;
        screens.screens.push_back({{u"second"_s}, {1440, 0, 1000, 500}, {1440, 0, 1000, 500}});
        engine.setTargets({testing::app(u"app10"_s), testing::app(u"app11"_s)});
        view->onLaunch = [this](const LaunchTarget& target) { launched << target.displayName(); };
        view->onHeightChange = [this](double height) { controller.updateHeight(height); };
        controller.onDismiss = [this] { ++dismissals; };
        controller.show();
        host.surface->setOrigin(origin, {1000, 700});
        QCoreApplication::processEvents();
    }

    void press(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&window, button, {}, place);
    }
    void release(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(&window, button, {}, place);
        QCoreApplication::processEvents();
    }

    static constexpr QPoint origin{100, 60};
    /// On the background of the panel and of the window around it.
    static constexpr QPoint grip = origin + QPoint(30, 28);
    static constexpr QPoint outside{50, 30};

    QTemporaryDir directory;
    FrecencyStore frecency{directory.path()};
    SearchEngine engine{frecency, nullptr};
    testing::FakeLook look;
    testing::FakeScreens screens;
    testing::FakePanelHost host;
    LauncherView* view = new LauncherView(engine, look.theme, look.icons);
    LauncherPanelController controller{view, host, screens, nullptr};
    QWindow& window = *view->window()->windowHandle();
    QStringList launched;
    int dismissals = 0;
};

TEST_F(LauncherPanelTest, IsDrawnClickedAndReadWhereItIsInItsWindow) {
    engine.setQuery(u"app"_s);
    const QRect panel(origin, host.surface->place.frame.size());
    ASSERT_EQ(panel.size(), QSize(640, 56 + 1 + 110));
    const QImage picture = view->window()->grab().toImage();
    for (const QPoint place :
         {panel.topLeft() - QPoint(0, 1), panel.bottomLeft() + QPoint(320, 1), QPoint(999, 699)}) {
        EXPECT_EQ(picture.pixelColor(place), QColor(Qt::green));
    }
    for (const QPoint place : {QPoint(0, 40), QPoint(320, 166), QPoint(639, 40)}) {
        EXPECT_NE(picture.pixelColor(origin + place), QColor(Qt::green));
    }

    const QPoint secondRow = origin + QPoint(300, 57 + 6 + 50 + 24);
    press(secondRow);
    release(secondRow);
    EXPECT_EQ(launched, QStringList{u"app11"_s});

    const QPoint corner = window.mapToGlobal(QPoint());
    QAccessibleInterface* const dialog = QAccessible::queryAccessibleInterface(view->window());
    EXPECT_EQ(dialog->rect(), panel.translated(corner));
    QAccessibleInterface* const list =
        QAccessible::queryAccessibleInterface(view->findChild<ResultListView*>());
    EXPECT_EQ(list->child(1)->rect(), QRect(corner + origin + QPoint(6, 113), QSize(628, 48)));
}

TEST_F(LauncherPanelTest, IsDraggedByItsBackgroundAloneAndAClickBesideItIsOneElsewhere) {
    const QRect before = host.surface->place.frame;
    press(grip);
    QTest::mouseMove(&window, grip + QPoint(20, 10));
    QTest::mouseMove(&window, outside);
    EXPECT_EQ(host.surface->place.frame, before.translated(outside - grip));
    release(outside);
    press(outside, Qt::MiddleButton);
    release(outside, Qt::MiddleButton);
    EXPECT_EQ(dismissals, 0);

    press(outside);
    QTest::mouseMove(&window, grip);
    EXPECT_TRUE(controller.isVisible()) << "the window below is not to get the release";
    release(grip);
    EXPECT_EQ(dismissals, 1);
    EXPECT_FALSE(host.hasKeyboard);
    controller.show();
    EXPECT_EQ(host.surface->place.frame.topLeft(), before.topLeft() + outside - grip);
}

TEST_F(LauncherPanelTest, GoesToTheScreenThatTheSystemPicksAndStaysThere) {
    EXPECT_EQ(host.surface->place, (platform::PanelPlace{{}, {400, 180, 640, 56}}));
    Q_EMIT host.surface->screenChosen({u"second"_s});
    EXPECT_EQ(host.surface->place, (platform::PanelPlace{{{u"second"_s}}, {180, 100, 640, 56}}));
    engine.setQuery(u"app"_s);
    EXPECT_EQ(host.surface->place.screen, screens.screens[1].id);
    // It moves along with its screen, and to another one once that is gone.
    screens.screens[1].frame.translate(0, 400);
    screens.screens[1].visibleFrame = {1440, 400, 1000, 400};
    Q_EMIT screens.changed();
    EXPECT_EQ(host.surface->place.frame, QRect(180, 180, 640, 167));
    screens.screens.pop_back();
    Q_EMIT screens.changed();
    EXPECT_EQ(host.surface->place.frame, QRect(400, 180, 640, 167));

    controller.hide();
    view->focusProxy()->clearFocus();
    controller.show();
    EXPECT_EQ(view->window()->focusWidget(), view->focusProxy()) << "it is to get the keys";
    EXPECT_EQ(host.surface->place.screen, std::nullopt) << "the next choice is the system's again";
    screens.screens.clear();
    Q_EMIT screens.changed();
}

TEST_F(LauncherPanelTest, GoesWithTheKeyboardAndWhenTheSystemSaysSo) {
    Q_EMIT host.surface->keyboardLost();
    Q_EMIT host.surface->keyboardLost();
    QCoreApplication::processEvents();
    EXPECT_EQ(dismissals, 1);
    int closings = 0;
    controller.onClose = [&closings] { ++closings; };
    for (int time = 0; time < 2; ++time) {
        Q_EMIT host.surface->closeRequested();
    }
    EXPECT_EQ(closings, 0) << "it is hidden";
    controller.show();
    Q_EMIT host.surface->closeRequested();
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(dismissals, 2);
    EXPECT_EQ(window.title(), u"Quorvantel"_s);
    EXPECT_TRUE(view->window()->testAttribute(Qt::WA_ShowWithoutActivating))
        << "the application in front stays active";
}

} // namespace
} // namespace quorvantel
