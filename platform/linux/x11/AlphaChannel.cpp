#include "platform/linux/x11/AlphaChannel.h"

#include <QSurfaceFormat>
#include <QWindow>

namespace quorvantel::platform {

void requestAlphaChannel(QWindow& window) {
    constexpr int alphaBits = 8;
    QSurfaceFormat format = window.requestedFormat();
    format.setAlphaBufferSize(alphaBits);
    window.setFormat(format);
}

} // namespace quorvantel::platform
