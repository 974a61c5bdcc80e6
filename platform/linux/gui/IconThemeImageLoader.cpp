#include "platform/linux/gui/IconThemeImageLoader.h"

#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

/// A larger file is no icon; decoding it would hold up the panel.
constexpr qint64 maximumFileSize = qint64{8} * 1024 * 1024;
/// Larger images in pixels are no icons either.
constexpr int maximumSourcePixels = 2048;

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

QPixmap loadFile(const QString& path, int points, qreal scale) {
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > maximumFileSize) {
        return {};
    }
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.width() > maximumSourcePixels || size.height() > maximumSourcePixels) {
        return {};
    }
    const int pixels = qRound(points * scale);
    const bool isVector = reader.format() == "svg" || reader.format() == "svgz";
    if (isVector && !size.isEmpty()) {
        reader.setScaledSize(size.scaled(pixels, pixels, Qt::KeepAspectRatio));
    }
    return fitted(reader.read(), pixels, scale);
}

/// The image of a theme's icon that is nearest to a size, at least that large if there is one.
///
/// QIcon itself gives the nearest whether smaller or larger, and a small one would be blurred when
/// it is enlarged.
QImage sharpestImage(const QIcon& icon, int points, qreal scale) {
    const int pixels = qRound(points * scale);
    const auto reaches = [pixels](const QImage& image) {
        return std::max(image.width(), image.height()) >= pixels;
    };
    QImage best = icon.pixmap(QSize(points, points), scale).toImage();
    QList<QSize> sizes = icon.availableSizes();
    std::ranges::sort(sizes, {}, &QSize::width);
    for (const QSize& size : std::as_const(sizes)) {
        if (reaches(best)) {
            break;
        }
        if (size.width() > points) {
            const QImage larger = icon.pixmap(size, scale).toImage();
            best = larger.width() > best.width() ? larger : best;
        }
    }
    return best;
}

} // namespace

IconThemeImageLoader::IconThemeImageLoader(IconThemes::DesktopTheme desktopTheme)
    : m_themes(std::move(desktopTheme)) {}

QPixmap IconThemeImageLoader::load(const Image& image, int points, qreal scale) {
    switch (image.source) {
    case Image::Source::None:
        return {};
    case Image::Source::File:
        return loadFile(image.name, points, scale);
    case Image::Source::IconTheme:
        return fitted(sharpestImage(QIcon::fromTheme(image.name), points, scale),
                      qRound(points * scale), scale);
    case Image::Source::Symbol:
        return loadFile(QStringLiteral(":/symbols/%1.svg").arg(image.name), points, scale);
    }
    Q_UNREACHABLE();
}

bool IconThemeImageLoader::refresh() {
    return m_themes.refresh();
}

} // namespace quorvantel::platform
