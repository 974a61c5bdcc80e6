#pragma once

#include <QHash>
#include <QImage>
#include <QMargins>

class QPainter;

namespace quorvantel::platform {

/// The soft shadow around the panel, as a picture.
class PanelShadow {
public:
    /// `cornerRadius` is that of the panel's continuous corners, in points.
    explicit PanelShadow(int cornerRadius) : m_cornerRadius(cornerRadius) {}

    /// How far the shadow reaches beyond the panel, in points.
    static QMargins margins();

    /// Draws the shadow of a panel with this frame: nothing inside the panel itself. All panels
    /// that one shadow is drawn for have the same width.
    void paint(QPainter& painter, const QRect& panel);

private:
    const QImage& stencil(const QSize& panel, qreal scale);

    int m_cornerRadius;
    /// The shadows of the few low panels and of one that is just large enough to have straight
    /// edges, by the panel's height, for one scale.
    QHash<int, QImage> m_stencils;
    qreal m_stencilScale = 0;
};

} // namespace quorvantel::platform
