#include "panel/AlphaChannel.h"

#include <QSurfaceFormat>
#include <QWindow>

namespace quorvantel {

void requestAlphaChannel(QWindow& window) {
    constexpr int alphaBits = 8;
    QSurfaceFormat format = window.requestedFormat();
    format.setAlphaBufferSize(alphaBits);
    window.setFormat(format);
}

} // namespace quorvantel
