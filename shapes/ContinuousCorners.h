#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QRegion>

class QColor;
class QPainter;

namespace quorvantel {

/// A rounded rectangle whose curvature sets in gradually: unlike a circular arc, the corner has no
/// point where the straight edge suddenly bends. At the diagonal it is as round as a circle of the
/// given radius.
QPainterPath continuousRoundedRect(const QRectF& rectangle, double radius);

/// The points of such a rectangle whose middle lies inside it.
QRegion continuousRoundedRegion(const QRect& rectangle, double radius);

/// Fills such a rectangle, its edges aligned to device pixels. Only the strips that hold the
/// corners are rasterized as a path; the rest is a plain rectangle, which costs a fraction of the
/// time on a surface as large as the panel.
void fillContinuousRoundedRect(QPainter& painter, const QRectF& rectangle, double radius,
                               const QColor& color);

/// Draws a hairline inside the edge of such a rectangle, aligned alike, its straight parts as plain
/// rectangles for the same reason.
void strokeContinuousRoundedRect(QPainter& painter, const QRectF& rectangle, double radius,
                                 const QColor& color);

} // namespace quorvantel
