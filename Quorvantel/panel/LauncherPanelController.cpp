#include "panel/LauncherPanelController.h"

#include <QDebug>

#include <utility>

namespace quorvantel {

using platform::PanelSurface;

LauncherPanelController::LauncherPanelController(LauncherView* view, platform::PanelHost& host,
                                                 const platform::Screens& screens,
                                                 platform::ClickMonitor* clickMonitor,
                                                 QObject* parent)
    : QObject(parent),
      m_screens(screens),
      m_clickMonitor(clickMonitor),
      m_view(view),
      m_panel(view, host) {
    connect(&m_panel, &LauncherPanel::dragged, this, &LauncherPanelController::dragPanel);
    connect(&m_panel, &LauncherPanel::left, this, &LauncherPanelController::panelLeft);
    const PanelSurface* const surface = &m_panel.surface();
    connect(surface, &PanelSurface::closeRequested, this, &LauncherPanelController::closeRequested);
    connect(surface, &PanelSurface::screenChosen, this, &LauncherPanelController::screenChosen);
    connect(&screens, &platform::Screens::changed, this, &LauncherPanelController::screensChanged);
}

void LauncherPanelController::show() {
    const auto target = m_screens.target();
    const QRectF frame = m_placement.show(m_screens.all(), target ? *target : likelyScreen());
    m_isScreenOpen = !target && !m_placement.sessionDraggedTopLeft();
    setFrame(frame);
    m_panel.surface().show();
    m_view->focusSearchField();
    if (m_clickMonitor != nullptr) {
        m_clickAwayMonitor = m_clickMonitor->observe([this] { panelLeft(); });
    }
}

void LauncherPanelController::releaseKeyboard() {
    m_panel.surface().releaseKeyboard();
}

void LauncherPanelController::hide() {
    m_clickAwayMonitor.reset();
    m_panel.hide();
    if (onDismiss) {
        onDismiss();
    }
}

void LauncherPanelController::runAfterFirstFrame(std::function<void()> task) {
    if (!m_panel.surface().awaitsFirstFrame()) {
        QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
        return;
    }
    // Queued, since the frame leaves for the screen after it was drawn.
    connect(&m_panel.surface(), &PanelSurface::firstFrameDrawn, this, std::move(task),
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void LauncherPanelController::updateHeight(double height) {
    if (isVisible()) {
        setFrame(m_placement.resize(height));
    }
}

platform::Screen LauncherPanelController::likelyScreen() const {
    const auto screens = m_screens.all();
    if (screens.empty()) {
        qFatal("Quorvantel: there is no screen to show the panel on");
    }
    return screens.front();
}

void LauncherPanelController::placeOn(const platform::Screen& screen) {
    const double height = m_placement.frame().height();
    m_placement.show(m_screens.all(), screen);
    setFrame(m_placement.resize(height));
}

void LauncherPanelController::setFrame(const QRectF& frame) {
    const platform::Screen& screen = *m_placement.screen();
    m_panel.setPlace(
        {m_isScreenOpen ? std::nullopt : std::optional(screen.id), fromTopLeft(frame, screen)});
}

void LauncherPanelController::screensChanged() {
    const auto screens = m_screens.all();
    if (!isVisible() || screens.empty()) {
        return;
    }
    auto screen = screenWithId(m_placement.screen()->id, screens);
    if (!screen) {
        screen = m_screens.target();
    }
    placeOn(screen ? *screen : screens.front());
}

void LauncherPanelController::screenChosen(const platform::ScreenId& id) {
    const auto screen = screenWithId(id, m_screens.all());
    if (!isVisible() || !screen) {
        return;
    }
    m_isScreenOpen = false;
    if (screen != m_placement.screen()) {
        placeOn(*screen);
    }
}

void LauncherPanelController::dragPanel(QPoint step) {
    const QRectF frame = m_placement.frame().translated(step.x(), -step.y());
    m_placement.moved(frame, m_screens.all());
    setFrame(frame);
}

void LauncherPanelController::panelLeft() {
    // The click is still being delivered; the panel goes once it has been.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isVisible()) {
                hide();
            }
        },
        Qt::QueuedConnection);
}

void LauncherPanelController::closeRequested() {
    if (!isVisible()) {
        return;
    }
    if (onClose) {
        onClose();
    }
    hide();
}

} // namespace quorvantel
