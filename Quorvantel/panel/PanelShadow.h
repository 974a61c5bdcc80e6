#pragma once

#include <QHash>
#include <QImage>
#include <QRasterWindow>

namespace quorvantel {

/// The soft shadow around the panel: a window of its own behind it, which takes no clicks. A window
/// apart keeps the panel's own frame exact; it only makes sense on a composited desktop.
class PanelShadow : public QRasterWindow {
    Q_OBJECT

public:
    /// `flags` are those of the panel's window.
    explicit PanelShadow(Qt::WindowFlags flags);

    /// Surrounds a panel with this window geometry.
    void surround(const QRect& panel);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QImage& stencil(const QSize& panel);

    /// The shadows of the few low panels and of one that is just large enough to have straight
    /// edges, by the panel's height, for one scale.
    QHash<int, QImage> m_stencils;
    qreal m_stencilScale = 0;
};

/// The shadow of a rounded rectangle of the given size in points, as premultiplied pixels for the
/// given scale: transparent where the rectangle itself is.
QImage panelShadowImage(const QSize& panel, qreal scale);

} // namespace quorvantel
