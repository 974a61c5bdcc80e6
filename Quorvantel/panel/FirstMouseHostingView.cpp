#include "panel/FirstMouseHostingView.h"

#include "panel/LauncherLayout.h"
#include "panel/PanelPlacement.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <utility>

namespace quorvantel {

FirstMouseHostingView::FirstMouseHostingView(LauncherView* view, platform::PanelHost& host)
    : QWidget(nullptr, host.windowFlags()), m_view(view) {
    const QSize largest(static_cast<int>(PanelPlacement::width), LauncherLayout::maximumHeight());
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Quorvantel"));
    resize(largest);
    view->setParent(this);
    setFocusProxy(view);
    winId();
    m_surface = host.makeSurface({*windowHandle(), largest, LauncherLayout::cornerRadius});
    view->mousePosition = [this] { return m_surface->mousePosition(); };
    connect(m_surface.get(), &platform::PanelSurface::geometryChanged, this,
            &FirstMouseHostingView::followSurface);
    followSurface();
    // Of itself Qt looks for the active widget among the top-level windows only.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* focused) {
        if (focused == windowHandle()) {
            // Deprecated in favour of what asks the window system for that, which it has done.
            QT_WARNING_PUSH
            QT_WARNING_DISABLE_DEPRECATED
            QApplication::setActiveWindow(this);
            QT_WARNING_POP
        }
    });
}

bool FirstMouseHostingView::event(QEvent* event) {
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::ApplicationFontChange && !m_surface->isVisible()) {
        grab();
    }
    return isHandled;
}

void FirstMouseHostingView::mousePressEvent(QMouseEvent* event) {
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isAtPanel(*event)) {
        m_isPressedElsewhere = isLeft || event->button() == Qt::RightButton;
    } else if (isLeft) {
        m_grip = m_surface->position(*event).toPoint();
    }
}

void FirstMouseHostingView::mouseMoveEvent(QMouseEvent* event) {
    if (!m_grip || !event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const QPoint position = m_surface->position(*event).toPoint();
    Q_EMIT dragged(position - std::exchange(*m_grip, position));
}

void FirstMouseHostingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_grip.reset();
    }
    // Not before: the release would go to the window below by itself.
    if (std::exchange(m_isPressedElsewhere, false)) {
        Q_EMIT clickedElsewhere();
    }
}

void FirstMouseHostingView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    m_surface->paintAround(painter);
}

void FirstMouseHostingView::endInteraction() {
    m_grip.reset();
    m_isPressedElsewhere = false;
    m_view->closeMenu();
}

bool FirstMouseHostingView::isAtPanel(const QMouseEvent& event) const {
    return m_view->geometry().contains(event.position().toPoint());
}

void FirstMouseHostingView::followSurface() {
    m_view->move(m_surface->contentOrigin());
    update();
}

} // namespace quorvantel
