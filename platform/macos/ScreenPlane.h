#pragma once

#include "platform/Screens.h"

#include <QPointF>
#include <QRect>
#include <QRectF>

#include <optional>
#include <vector>

/// The plane of the screens (see `Screen`), which is the window server's own, and that of Qt's
/// windows, which is the other way up.
namespace quorvantel::platform {

/// The first screen that has the point on it. A mouse that touches the upper edge of a screen is on
/// it, and one that touches the lower edge on the screen below, since the window server names the
/// upper edge of a pixel.
std::optional<Screen> screenAt(QPointF point, const std::vector<Screen>& screens);

/// Turns a rectangle over, from either plane to the other. `height` is that of the first screen.
QRectF turnedOver(const QRectF& rectangle, double height);

/// Turns a point over, likewise.
QPointF turnedOver(QPointF point, double height);

/// A frame in points from the top-left corner of a screen, y growing downward, in the plane of the
/// screens.
QRectF frameOnScreen(const QRect& frame, const Screen& screen);

} // namespace quorvantel::platform
