#pragma once

#include <QRectF>

class QColor;
class QPainter;

/// Drawing on whole device pixels, so that straight edges and thin lines are crisp at every scale
/// factor and neither overlap nor leave gaps. For painters that scale and move, but do not rotate.
namespace quorvantel::PixelGrid {

/// How many device pixels a point measures.
double scale(const QPainter& painter);

/// The rectangle with each edge moved to the nearest boundary between device pixels, in points.
QRectF aligned(const QPainter& painter, const QRectF& rectangle);

/// The thickness of a line that is to measure one point: the nearest whole number of device pixels
/// but at least one, in points.
double hairline(const QPainter& painter);

/// Fills the device pixels of the aligned rectangle, all of them evenly.
void fill(QPainter& painter, const QRectF& rectangle, const QColor& color);

} // namespace quorvantel::PixelGrid
