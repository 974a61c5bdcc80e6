#include "drawing/Motion.h"

#include <QStyle>

namespace quorvantel {

bool isAnimated(const QWidget& widget) {
    return widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) > 0;
}

} // namespace quorvantel
