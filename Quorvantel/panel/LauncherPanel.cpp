#include "panel/LauncherPanel.h"

#include "drawing/ContinuousCorners.h"
#include "panel/LauncherLayout.h"
#include "panel/PanelPlacement.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QWindow>

#include <utility>

namespace quorvantel {

LauncherPanel::LauncherPanel(LauncherView* view, const platform::PanelHost& host,
                             platform::WindowBackdrop& backdrop)
    : QWidget(nullptr, host.windowFlags()),
      m_backdrop(backdrop),
      m_view(view),
      m_shadow(host.windowFlags()) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Quorvantel"));
    resize(static_cast<int>(PanelPlacement::width),
           static_cast<int>(PanelPlacement::initialHeight));
    view->setParent(this);
    view->setGeometry(rect());
    setFocusProxy(view);
    connect(view, &LauncherView::translucencyChanged, this, &LauncherPanel::fitBlur);
    // The native windows exist from now on, so that showing the panel creates nothing.
    winId();
    m_shadow.winId();
}

void LauncherPanel::closeEvent(QCloseEvent* event) {
    Q_EMIT closing();
    QWidget::closeEvent(event);
}

void LauncherPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_grip = event->globalPosition().toPoint() - pos();
    }
}

void LauncherPanel::mouseMoveEvent(QMouseEvent* event) {
    if (m_grip) {
        move(event->globalPosition().toPoint() - *m_grip);
    }
}

void LauncherPanel::mouseReleaseEvent(QMouseEvent* /*event*/) {
    m_grip.reset();
}

void LauncherPanel::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    m_shadow.surround(geometry());
    Q_EMIT moved();
}

void LauncherPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_view->setGeometry(rect());
    fitBackdrop();
}

void LauncherPanel::showEvent(QShowEvent* event) {
    m_isComposited = m_backdrop.isComposited();
    m_view->setBlurAvailable(m_isComposited && m_backdrop.offersBlur());
    fitBackdrop();
    m_awaitsFirstFrame = true;
    m_shadow.setVisible(m_isComposited && !m_backdrop.castsShadows());
    QWidget::showEvent(event);
}

void LauncherPanel::hideEvent(QHideEvent* event) {
    m_shadow.hide();
    QWidget::hideEvent(event);
    endFirstFrame();
}

void LauncherPanel::paintEvent(QPaintEvent* /*event*/) {
    endFirstFrame();
}

void LauncherPanel::endFirstFrame() {
    if (std::exchange(m_awaitsFirstFrame, false)) {
        Q_EMIT firstFrameDrawn();
    }
}

void LauncherPanel::fitBackdrop() {
    m_shadow.surround(geometry());
    fitBlur();
    if (m_isComposited) {
        clearMask();
        return;
    }
    // Without a compositor the transparent corners would be black.
    const auto outline = continuousRoundedRect(rect(), LauncherLayout::cornerRadius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void LauncherPanel::fitBlur() {
    QRegion region;
    if (m_view->isTranslucent()) {
        const auto outline = continuousRoundedRect(rect(), LauncherLayout::cornerRadius);
        region = QRegion(outline.toFillPolygon().toPolygon());
    }
    m_backdrop.setBlurBehind(*windowHandle(), region);
}

} // namespace quorvantel
