#include "shapes/ContinuousCorners.h"

#include "shapes/PixelGrid.h"

#include <QColor>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace quorvantel {

namespace {

/// How far from the corner the edge begins to bend, in radii.
constexpr double reach = 1.5;

/// The distance of the control points from the corner, in radii. A cubic curve from (reach, 0) to
/// (0, reach) with control points (c, 0) and (0, c) passes its middle at (reach + 3c) / 8 on both
/// axes; a circular arc does so at 1 − 1/√2.
constexpr double control = (8 * (1 - 1 / std::numbers::sqrt2) - reach) / 3;

/// How much of an edge a corner takes, in points, up to the next boundary between device pixels.
double cornerExtent(const QPainter& painter, double radius) {
    const double scale = PixelGrid::scale(painter);
    return std::ceil(radius * reach * scale) / scale;
}

/// In a small rectangle neighbouring corners must not overlap.
double fittingRadius(const QSizeF& size, double radius) {
    const double room = std::min(size.width(), size.height()) / 2;
    return std::min(radius, room / reach);
}

/// How far from the left edge a left corner's curve is at a distance below the upper edge, both in
/// units of the rectangle; the curve is that of `continuousRoundedRect`.
double curveInset(double distance, double unit) {
    const auto coordinate = [unit](double place) {
        const double rest = 1 - place;
        return unit * (place * place * place * reach + 3 * place * place * rest * control);
    };
    double low = 0;
    double high = 1;
    // The distance grows along the curve, and halving is precise after as many steps as it has
    // bits.
    for (int step = 0; step < std::numeric_limits<float>::digits; ++step) {
        const double middle = (low + high) / 2;
        (coordinate(middle) < distance ? low : high) = middle;
    }
    return coordinate(1 - low);
}

template <typename Draw>
void drawWithin(QPainter& painter, const QRectF& clip, const Draw& draw) {
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    draw();
    painter.restore();
}

} // namespace

QPainterPath continuousRoundedRect(const QRectF& rectangle, double radius) {
    const double unit = fittingRadius(rectangle.size(), radius);
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

QRegion continuousRoundedRegion(const QRect& rectangle, double radius) {
    constexpr double middle = 0.5;
    const double unit = fittingRadius(rectangle.size(), radius);
    const int rows = static_cast<int>(unit * reach);
    QRegion region(rectangle.adjusted(0, rows, 0, -rows));
    for (int row = 0; row < rows; ++row) {
        const int inset = static_cast<int>(std::ceil(curveInset(row + middle, unit) - middle));
        const int width = rectangle.width() - 2 * inset;
        region += QRect(rectangle.left() + inset, rectangle.top() + row, width, 1);
        region += QRect(rectangle.left() + inset, rectangle.bottom() - row, width, 1);
    }
    return region;
}

void fillContinuousRoundedRect(QPainter& painter, const QRectF& rectangle, double radius,
                               const QColor& color) {
    const QRectF frame = PixelGrid::aligned(painter, rectangle);
    const double strip = cornerExtent(painter, radius);
    const QPainterPath outline = continuousRoundedRect(frame, radius);
    if (frame.height() <= 2 * strip) {
        painter.fillPath(outline, color);
        return;
    }
    const QRectF top(frame.left(), frame.top(), frame.width(), strip);
    for (const QRectF& clip : {top, top.translated(0, frame.height() - strip)}) {
        drawWithin(painter, clip, [&] { painter.fillPath(outline, color); });
    }
    PixelGrid::fill(painter, frame.adjusted(0, strip, 0, -strip), color);
}

void strokeContinuousRoundedRect(QPainter& painter, const QRectF& rectangle, double radius,
                                 const QColor& color) {
    const QRectF frame = PixelGrid::aligned(painter, rectangle);
    const double thickness = PixelGrid::hairline(painter);
    const double inset = thickness / 2;
    const double extent = cornerExtent(painter, radius);
    const QPainterPath line =
        continuousRoundedRect(frame.adjusted(inset, inset, -inset, -inset), radius - inset);
    const QPen pen(color, thickness);
    if (std::min(frame.width(), frame.height()) <= 2 * extent) {
        painter.strokePath(line, pen);
        return;
    }
    const QRectF corner(frame.topLeft(), QSizeF(extent, extent));
    const double across = frame.width() - extent;
    const double down = frame.height() - extent;
    for (const QPointF& offset :
         {QPointF(0, 0), QPointF(across, 0), QPointF(0, down), QPointF(across, down)}) {
        drawWithin(painter, corner.translated(offset), [&] { painter.strokePath(line, pen); });
    }
    const QRectF horizontal(frame.left() + extent, frame.top(), frame.width() - 2 * extent,
                            thickness);
    const QRectF vertical(frame.left(), frame.top() + extent, thickness,
                          frame.height() - 2 * extent);
    for (const QRectF& edge : {horizontal, horizontal.translated(0, frame.height() - thickness),
                               vertical, vertical.translated(frame.width() - thickness, 0)}) {
        PixelGrid::fill(painter, edge, color);
    }
}

} // namespace quorvantel
