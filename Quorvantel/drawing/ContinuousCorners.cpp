#include "drawing/ContinuousCorners.h"

#include <QColor>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorvantel {

namespace {

/// How far from the corner the edge begins to bend, in radii.
constexpr double reach = 1.5;

/// The distance of the control points from the corner, in radii. A cubic curve from (reach, 0) to
/// (0, reach) with control points (c, 0) and (0, c) passes its middle at (reach + 3c) / 8 on both
/// axes; a circular arc does so at 1 − 1/√2.
constexpr double control = (8 * (1 - 1 / std::numbers::sqrt2) - reach) / 3;

/// How much of an edge a corner takes, up to the next pixel of the device, so that no seam shows at
/// any scale.
double cornerExtent(const QPainter& painter, double radius) {
    const double scale = painter.device()->devicePixelRatioF();
    return std::ceil(radius * reach * scale) / scale;
}

} // namespace

QPainterPath continuousRoundedRect(const QRectF& rectangle, double radius) {
    // In a small rectangle neighbouring corners must not overlap.
    const double room = std::min(rectangle.width(), rectangle.height()) / 2;
    const double unit = std::min(radius, room / reach);
    const double far = unit * reach;
    const double near = unit * control;
    const double left = rectangle.left();
    const double right = rectangle.right();
    const double top = rectangle.top();
    const double bottom = rectangle.bottom();

    QPainterPath path(QPointF(left + far, top));
    path.lineTo(right - far, top);
    path.cubicTo(right - near, top, right, top + near, right, top + far);
    path.lineTo(right, bottom - far);
    path.cubicTo(right, bottom - near, right - near, bottom, right - far, bottom);
    path.lineTo(left + far, bottom);
    path.cubicTo(left + near, bottom, left, bottom - near, left, bottom - far);
    path.lineTo(left, top + far);
    path.cubicTo(left, top + near, left + near, top, left + far, top);
    path.closeSubpath();
    return path;
}

void fillContinuousRoundedRect(QPainter& painter, const QRectF& rectangle, double radius,
                               const QColor& color) {
    const double strip = cornerExtent(painter, radius);
    const QPainterPath outline = continuousRoundedRect(rectangle, radius);
    if (rectangle.height() <= 2 * strip) {
        painter.fillPath(outline, color);
        return;
    }
    const QRectF top(rectangle.left(), rectangle.top(), rectangle.width(), strip);
    painter.save();
    for (const QRectF& clip : {top, top.translated(0, rectangle.height() - strip)}) {
        painter.setClipRect(clip);
        painter.fillPath(outline, color);
    }
    painter.restore();
    painter.fillRect(rectangle.adjusted(0, strip, 0, -strip), color);
}

void strokeContinuousRoundedRect(QPainter& painter, const QRectF& rectangle, double radius,
                                 const QColor& color) {
    const double extent = cornerExtent(painter, radius);
    const QPainterPath line =
        continuousRoundedRect(rectangle.adjusted(0.5, 0.5, -0.5, -0.5), radius);
    painter.save();
    painter.setPen(QPen(color, 1));
    painter.setBrush(Qt::NoBrush);
    if (std::min(rectangle.width(), rectangle.height()) <= 2 * extent) {
        painter.drawPath(line);
        painter.restore();
        return;
    }
    const QRectF corner(rectangle.topLeft(), QSizeF(extent, extent));
    const double across = rectangle.width() - extent;
    const double down = rectangle.height() - extent;
    for (const QPointF& offset :
         {QPointF(0, 0), QPointF(across, 0), QPointF(0, down), QPointF(across, down)}) {
        painter.setClipRect(corner.translated(offset));
        painter.drawPath(line);
    }
    painter.restore();
    const double width = rectangle.width() - 2 * extent;
    const double height = rectangle.height() - 2 * extent;
    for (const QRectF& edge :
         {QRectF(rectangle.left() + extent, rectangle.top(), width, 1),
          QRectF(rectangle.left() + extent, rectangle.bottom() - 1, width, 1),
          QRectF(rectangle.left(), rectangle.top() + extent, 1, height),
          QRectF(rectangle.right() - 1, rectangle.top() + extent, 1, height)}) {
        painter.fillRect(edge, color);
    }
}

} // namespace quorvantel
