#pragma once

#include "theme/ResolvedTheme.h"

#include <QPainter>
#include <QWidget>

namespace quorvantel {

/// Whether a control is to show that it has the keyboard focus: it has, and the user moves the
/// focus by keyboard.
bool showsFocus(const QWidget& control);

/// Draws the mark of the keyboard focus just inside a rounded rectangle.
void drawFocusRing(QPainter& painter, const QRectF& frame, double cornerRadius,
                   const ThemeColor& color);

} // namespace quorvantel
