#include "theme/EaseInOut.h"

#include <QPointF>

namespace quorvantel {

QEasingCurve easeInOut() {
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(QPointF(0.42, 0), QPointF(0.58, 1), QPointF(1, 1));
    return curve;
}

} // namespace quorvantel
