#pragma once

#include "theme/ResolvedTheme.h"

#include <QImage>
#include <QWidget>

namespace quorvantel::gallery {

/// The widget as it draws itself, transparent where it draws nothing, with the device pixel ratio
/// of its screen.
QImage pictureOf(QWidget& widget);

/// The picture of a window with its shadow, on a transparent ground with room for the shadow.
/// `cornerRadius` is the window's, in points.
QImage withShadow(const QImage& window, double cornerRadius, ColorScheme scheme);

/// The same on a calm desktop. A window that is translucent lets it through.
QImage onBackdrop(const QImage& window, double cornerRadius, ColorScheme scheme);

} // namespace quorvantel::gallery
