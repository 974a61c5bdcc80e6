#include "platform/linux/x11/X11PanelShadow.h"

#include "platform/linux/x11/AlphaChannel.h"

#include <QPainter>

namespace quorvantel::platform {

X11PanelShadow::X11PanelShadow(Qt::WindowFlags flags, int cornerRadius) : m_shadow(cornerRadius) {
    requestAlphaChannel(*this);
    setFlags(flags | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("Quorvantel Shadow"));
    create();
}

void X11PanelShadow::surround(const QRect& panel) {
    setGeometry(panel.marginsAdded(PanelShadow::margins()));
}

void X11PanelShadow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    m_shadow.paint(painter, QRect(QPoint(), size()).marginsRemoved(PanelShadow::margins()));
}

} // namespace quorvantel::platform
