#include "panel/LauncherPanel.h"

#include "panel/ContinuousCorners.h"
#include "panel/LauncherLayout.h"
#include "panel/PanelPlacement.h"

#include <QMouseEvent>

namespace quorvantel {

LauncherPanel::LauncherPanel(QWidget* content, platform::PanelHost& host)
    : QWidget(nullptr, host.windowFlags()), m_host(host), m_content(content) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Quorvantel"));
    resize(static_cast<int>(PanelPlacement::width),
           static_cast<int>(PanelPlacement::initialHeight));
    content->setParent(this);
    content->setGeometry(rect());
    setFocusProxy(content);
    // The native window exists from now on, so that showing the panel creates nothing.
    winId();
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
    Q_EMIT moved();
}

void LauncherPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_content->setGeometry(rect());
    cutCorners();
}

void LauncherPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    cutCorners();
}

void LauncherPanel::cutCorners() {
    if (m_host.isComposited()) {
        clearMask();
        return;
    }
    // Without a compositor the transparent corners would be black.
    const auto outline = continuousRoundedRect(rect(), LauncherLayout::cornerRadius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

} // namespace quorvantel
