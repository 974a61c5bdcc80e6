#pragma once

#include <QRectF>
#include <QSizeF>

namespace quorvantel::platform {

/// Where a system symbol of a size is to be drawn in a square of `points`: in the middle, and
/// smaller only where it does not fit, so that symbols that are made to go together keep their
/// sizes in proportion. Empty for a symbol without extent.
QRectF symbolFrame(const QSizeF& size, int points);

} // namespace quorvantel::platform
