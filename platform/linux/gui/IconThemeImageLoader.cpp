#include "platform/linux/gui/IconThemeImageLoader.h"

#include "platform/linux/gui/IconGate.h"

#include <QCoreApplication>
#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QtGui/private/qiconloader_p.h>

#include <algorithm>
#include <map>
#include <utility>

namespace quorvantel::platform {

namespace {

/// The image as large as fits into a square of `pixels`, in the middle of it.
QPixmap fitted(const QImage& image, int pixels, qreal scale) {
    if (image.isNull()) {
        return {};
    }
    // An image with a palette would be forced back into it, which lacks the shades in between.
    QImage content =
        image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
            .scaled(QSize(pixels, pixels), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    content.setDevicePixelRatio(1);
    QImage canvas(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.drawImage((pixels - content.width()) / 2, (pixels - content.height()) / 2, content);
    painter.end();
    canvas.setDevicePixelRatio(scale);
    return QPixmap::fromImage(canvas);
}

bool isVector(const QIconLoaderEngineEntry& entry) {
    return entry.filename.endsWith(u".svg") || entry.filename.endsWith(u".svgz");
}

int extent(const QIconLoaderEngineEntry& entry) {
    return entry.dir.size * entry.dir.scale;
}

/// How well the file of a theme's icon suits a size: the smaller, the better. Sharp ones first, and
/// of those that must be enlarged the largest.
int distance(const QIconLoaderEngineEntry& entry, int points, int pixels) {
    constexpr int enlarged = 1 << 16;
    const bool isMadeForIt = entry.dir.type == QIconDirInfo::Scalable &&
                             entry.dir.minSize <= points && entry.dir.maxSize >= points;
    if (isVector(entry)) {
        return isMadeForIt || extent(entry) == pixels ? 0 : 1;
    }
    return extent(entry) >= pixels ? extent(entry) - pixels + (extent(entry) > pixels ? 2 : 0)
                                   : enlarged - extent(entry);
}

/// The files of a theme's icon, those first that suit a size best. Qt finds them, but it would read
/// them, too, whatever they are.
QStringList themeFiles(const QString& name, int points, int pixels) {
    const QThemeIconInfo icon = QIconLoader::instance()->loadIcon(name);
    std::multimap<int, QString> files;
    for (const auto& entry : icon.entries) {
        files.emplace(distance(*entry, points, pixels), entry->filename);
    }
    QStringList paths;
    for (const auto& [distance, path] : files) {
        paths.append(path);
    }
    return paths;
}

/// One that the gate refuses gives way to the next, of which there are not many.
QImage themeImage(const QString& name, int points, int pixels) {
    constexpr qsizetype maximumTries = 3;
    for (const QString& path : themeFiles(name, points, pixels).mid(0, maximumTries)) {
        if (QImage image = readIcon(path, pixels); !image.isNull()) {
            return image;
        }
    }
    return {};
}

QImage symbolImage(const QString& name, int pixels) {
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? decodeIcon(file.readAll(), pixels) : QImage();
}

} // namespace

IconThemeImageLoader::IconThemeImageLoader(IconThemes::DesktopTheme desktopTheme)
    : m_themes(std::move(desktopTheme)) {
    // The toolkit loads the libraries for all formats with the first image, which is not to be
    // while the panel waits for it.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QImageReader::supportedImageFormats(); },
        Qt::QueuedConnection);
}

QPixmap IconThemeImageLoader::load(const Image& image, int points, qreal scale) {
    const int pixels = qRound(points * scale);
    switch (image.source) {
    case Image::Source::None:
        return {};
    case Image::Source::File:
        return fitted(readIcon(image.name, pixels), pixels, scale);
    case Image::Source::IconTheme:
        return fitted(themeImage(image.name, points, pixels), pixels, scale);
    case Image::Source::Symbol:
        return fitted(symbolImage(image.name, pixels), pixels, scale);
    }
    Q_UNREACHABLE();
}

bool IconThemeImageLoader::refresh() {
    return m_themes.refresh();
}

} // namespace quorvantel::platform
