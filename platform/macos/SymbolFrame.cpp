#include "platform/macos/SymbolFrame.h"

namespace quorvantel::platform {

QRectF symbolFrame(const QSizeF& size, int points) {
    if (size.isEmpty()) {
        return {};
    }
    const QSizeF square(points, points);
    QRectF frame(QPointF(),
                 size.boundedTo(square) == size ? size : size.scaled(square, Qt::KeepAspectRatio));
    frame.moveCenter(QRectF(QPointF(), square).center());
    return frame;
}

} // namespace quorvantel::platform
