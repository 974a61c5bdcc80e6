#include "settings/FocusRing.h"

#include "shapes/ContinuousCorners.h"

namespace quorvantel {

bool showsFocus(const QWidget& control) {
    return control.hasFocus() && control.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void drawFocusRing(QPainter& painter, const QRectF& frame, double cornerRadius,
                   const ThemeColor& color) {
    constexpr double width = 2;
    painter.save();
    painter.setPen(QPen(color.toQColor(), width));
    painter.drawPath(continuousRoundedRect(
        frame.adjusted(width / 2, width / 2, -width / 2, -width / 2), cornerRadius));
    painter.restore();
}

} // namespace quorvantel
