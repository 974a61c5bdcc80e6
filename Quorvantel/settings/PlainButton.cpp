#include "settings/PlainButton.h"

#include "settings/FocusRing.h"
#include "shapes/ContinuousCorners.h"
#include "theme/ControlColors.h"
#include "theme/InterfaceFont.h"

#include <QPainter>

namespace quorvantel {

namespace {

constexpr int fontSize = 13;
constexpr int verticalPadding = 3;
constexpr double cornerRadius = 4;

} // namespace

PlainButton::PlainButton(const QString& label, const ThemedRoot& theme, QWidget* parent)
    : ThemedButton(label, theme, parent) {
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
}

QSize PlainButton::sizeHint() const {
    const QFontMetrics metrics(interfaceFont(fontSize, QFont::Medium));
    return {metrics.horizontalAdvance(text()), metrics.height() + 2 * verticalPadding};
}

void PlainButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isFocused = showsFocus(*this);
    if (isFocused || isDown()) {
        painter.fillPath(continuousRoundedRect(rect(), cornerRadius),
                         theme().selectionFill.toQColor());
    }
    QFont font = interfaceFont(fontSize, QFont::Medium);
    font.setUnderline(underMouse() || isFocused);
    painter.setFont(font);
    painter.setPen(controlColors(theme()).accent.toQColor());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
}

} // namespace quorvantel
