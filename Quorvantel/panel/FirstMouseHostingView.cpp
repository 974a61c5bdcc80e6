#include "panel/FirstMouseHostingView.h"

#include "panel/LauncherLayout.h"
#include "panel/PanelPlacement.h"

#include <QApplication>
#include <QMouseEvent>

#include <utility>

namespace quorvantel {

FirstMouseHostingView::FirstMouseHostingView(LauncherView* view, QWindow& panel)
    : QWidget(nullptr, panel.flags()), m_panel(panel), m_view(view) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(panel.title());
    setFixedSize(static_cast<int>(PanelPlacement::width), LauncherLayout::maximumHeight());
    view->setParent(this);
    setFocusProxy(view);
    winId();
    windowHandle()->setParent(&panel);
    move(0, 0);
    // The same points are other pixels on a screen of another scale.
    connect(windowHandle(), &QWindow::screenChanged, this,
            [this] { windowHandle()->setGeometry(geometry()); });
    // Of itself Qt looks for the active widget among the top-level windows only.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* focused) {
        if (focused == windowHandle()) {
            QApplication::setActiveWindow(this);
        }
    });
    show();
}

void FirstMouseHostingView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_grip = event->globalPosition().toPoint();
    }
}

void FirstMouseHostingView::mouseMoveEvent(QMouseEvent* event) {
    if (!m_grip || !event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const QPoint position = event->globalPosition().toPoint();
    Q_EMIT dragged(position - std::exchange(*m_grip, position));
}

void FirstMouseHostingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_grip.reset();
    }
}

void FirstMouseHostingView::endInteraction() {
    m_grip.reset();
    m_view->closeMenu();
}

} // namespace quorvantel
