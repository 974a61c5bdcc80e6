#pragma once

#include <QSize>
#include <QSvgRenderer>

namespace quorvantel::platform {

/// What it takes to draw a vector image in a size, found by having it drawn onto nothing: about the
/// pixels along all outlines that a rasteriser would follow, those of strokes and of each of their
/// dashes included. Infinite when an outline leads so far outside that clipping it could take for
/// ever.
double drawingCost(QSvgRenderer& image, const QSize& size);

} // namespace quorvantel::platform
