#include "panel/LauncherPanelController.h"

#include <utility>

namespace quorvantel {

LauncherPanelController::LauncherPanelController(LauncherView* view, platform::PanelHost& host,
                                                 const platform::Screens& screens,
                                                 platform::ClickMonitor& clickMonitor,
                                                 platform::WindowBackdrop& backdrop,
                                                 QObject* parent)
    : QObject(parent),
      m_host(host),
      m_screens(screens),
      m_clickMonitor(clickMonitor),
      m_view(view),
      m_panel(view, host, backdrop) {
    connect(&m_panel, &LauncherPanel::dragged, this, &LauncherPanelController::panelDragged);
    connect(&m_panel, &LauncherPanel::closing, this, [this] {
        if (isVisible()) {
            if (onClose) {
                onClose();
            }
            hide();
        }
    });
    connect(&screens, &platform::Screens::changed, this, &LauncherPanelController::screensChanged);
}

LauncherPanelController::~LauncherPanelController() {
    if (m_panel.isVisible()) {
        releaseKeyboard();
    }
}

void LauncherPanelController::show() {
    m_targetScreen = currentTargetScreen();
    setFrame(m_placement.show(m_screens.all(), m_targetScreen));
    m_panel.show();
    m_panel.raise();
    m_host.takeKeyboard(m_panel.keyboardWindow());
    m_view->focusSearchField();
    m_clickAwayMonitor = m_clickMonitor.observe([this] {
        // The click is still being delivered; the panel goes once it has been.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isVisible()) {
                    hide();
                }
            },
            Qt::QueuedConnection);
    });
}

void LauncherPanelController::releaseKeyboard() {
    m_host.releaseKeyboard(m_panel.keyboardWindow());
}

void LauncherPanelController::hide() {
    m_clickAwayMonitor.reset();
    releaseKeyboard();
    m_panel.hide();
    if (onDismiss) {
        onDismiss();
    }
}

void LauncherPanelController::runAfterFirstFrame(std::function<void()> task) {
    if (!m_panel.awaitsFirstFrame()) {
        QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
        return;
    }
    // Queued, since the frame leaves for the screen after it was drawn.
    connect(&m_panel, &LauncherPanel::firstFrameDrawn, this, std::move(task),
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void LauncherPanelController::updateHeight(double height) {
    if (isVisible()) {
        setFrame(m_placement.resize(height, m_targetScreen));
    }
}

void LauncherPanelController::setFrame(const QRectF& frame) {
    m_panel.setFrame(m_screens.toWindowGeometry(frame));
}

void LauncherPanelController::screensChanged() {
    if (m_screens.all().empty()) {
        return;
    }
    const double height = m_panel.frame().height();
    const auto screen = screenOf(m_screens.fromWindowGeometry(m_panel.frame()), m_screens.all());
    m_targetScreen = screen ? *screen : currentTargetScreen();
    m_placement.show(m_screens.all(), m_targetScreen);
    setFrame(m_placement.resize(height, m_targetScreen));
}

platform::Screen LauncherPanelController::currentTargetScreen() const {
    return targetScreen(m_screens.mouseLocation(), m_screens.all(), m_screens.main());
}

void LauncherPanelController::panelDragged() {
    m_placement.moved(m_screens.fromWindowGeometry(m_panel.frame()), m_screens.all());
}

} // namespace quorvantel
