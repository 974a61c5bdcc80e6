#pragma once

#include <QEasingCurve>

namespace quorvantel {

/// The progress of an animation that starts and ends gently: the cubic Bézier curve with the
/// control points (0.42, 0) and (0.58, 1), known as "ease-in-out" from CSS Easing Functions.
QEasingCurve easeInOut();

} // namespace quorvantel
