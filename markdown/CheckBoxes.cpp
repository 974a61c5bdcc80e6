#include "markdown/CheckBoxes.h"

#include "markdown/TextRole.h"

#include <QFontInfo>
#include <QPainter>

namespace quorvantel::markdown {

namespace {

/// The side of a box relative to the height of its font.
constexpr double side = 0.92;
/// How far a box reaches below the base line, likewise.
constexpr double descent = 0.1;

} // namespace

QSizeF CheckBoxes::intrinsicSize(QTextDocument* /*document*/, int /*position*/,
                                 const QTextFormat& format) {
    const double unit = QFontInfo(format.toCharFormat().font()).pixelSize();
    return {advance * unit, side * unit};
}

void CheckBoxes::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* /*document*/,
                            int /*position*/, const QTextFormat& format) {
    const QColor color = format.foreground().color();
    const bool isChecked = (format.intProperty(TextRole::property) & TextRole::checkedBox) != 0;
    const double size = rect.height();
    const QRectF box(rect.left() + 0.5, rect.top() + descent * size + 0.5, size - 1, size - 1);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, 1.2));
    painter->setBrush(isChecked ? QBrush(color) : QBrush(Qt::NoBrush));
    painter->drawRoundedRect(box, size * 0.2, size * 0.2);
    if (isChecked) {
        const QPolygonF tick{QPointF(box.left() + 0.24 * size, box.top() + 0.5 * size),
                             QPointF(box.left() + 0.42 * size, box.top() + 0.68 * size),
                             QPointF(box.left() + 0.74 * size, box.top() + 0.28 * size)};
        painter->setPen(QPen(Qt::white, 0.12 * size, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        painter->drawPolyline(tick);
    }
    painter->restore();
}

} // namespace quorvantel::markdown
