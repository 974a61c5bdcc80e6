#include "shapes/PixelGrid.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quorvantel::PixelGrid {

namespace {

/// As Qt rounds the clips of widgets; an edge in the middle of a pixel moves down or right.
double nearestBoundary(double position) {
    return std::floor(position + 0.5);
}

} // namespace

double scale(const QPainter& painter) {
    return painter.deviceTransform().m11();
}

QRectF aligned(const QPainter& painter, const QRectF& rectangle) {
    const QTransform toPixels = painter.deviceTransform();
    const QRectF pixels = toPixels.mapRect(rectangle);
    const QPointF topLeft(nearestBoundary(pixels.left()), nearestBoundary(pixels.top()));
    const QPointF bottomRight(nearestBoundary(pixels.right()), nearestBoundary(pixels.bottom()));
    return toPixels.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double hairline(const QPainter& painter) {
    const double pixelsPerPoint = scale(painter);
    // At a scale of 1.5 the thinner line.
    return std::max(1.0, std::ceil(pixelsPerPoint - 0.5)) / pixelsPerPoint;
}

void fill(QPainter& painter, const QRectF& rectangle, const QColor& color) {
    const bool isAntialiased = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(rectangle, color);
    painter.setRenderHint(QPainter::Antialiasing, isAntialiased);
}

} // namespace quorvantel::PixelGrid
