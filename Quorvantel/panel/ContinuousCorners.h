#pragma once

#include <QPainterPath>
#include <QRectF>

namespace quorvantel {

/// A rounded rectangle whose curvature sets in gradually: unlike a circular arc, the corner has no
/// point where the straight edge suddenly bends. At the diagonal it is as round as a circle of the
/// given radius.
QPainterPath continuousRoundedRect(const QRectF& rectangle, double radius);

} // namespace quorvantel
