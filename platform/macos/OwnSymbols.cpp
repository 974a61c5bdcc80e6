#include "platform/macos/OwnSymbols.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace quorvantel::platform {

QImage ownSymbol(const QString& name, int pixels) {
    const QString file = QStringLiteral(":/symbols/%1.svg").arg(name);
    QSvgRenderer renderer;
    if (!QFile::exists(file) || !renderer.load(file)) {
        return {};
    }
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace quorvantel::platform
