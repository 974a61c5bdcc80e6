#include "panel/ContinuousCorners.h"

#include <algorithm>
#include <numbers>

namespace quorvantel {

namespace {

/// How far from the corner the edge begins to bend, in radii.
constexpr double reach = 1.5;

/// The distance of the control points from the corner, in radii. A cubic curve from (reach, 0) to
/// (0, reach) with control points (c, 0) and (0, c) passes its middle at (reach + 3c) / 8 on both
/// axes; a circular arc does so at 1 − 1/√2.
constexpr double control = (8 * (1 - 1 / std::numbers::sqrt2) - reach) / 3;

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

} // namespace quorvantel
