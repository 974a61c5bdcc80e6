#include "platform/linux/gui/IconThemeImageLoader.h"

#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <array>

namespace quorvantel::platform {

namespace {

/// A larger file is no icon; decoding it would hold up the panel.
constexpr qint64 maximumFileSize = 8 * 1024 * 1024;
/// Larger images in pixels are no icons either.
constexpr int maximumSourcePixels = 2048;

constexpr std::array<QStringView, 3> widespreadThemes{u"Adwaita", u"breeze", u"Papirus"};

bool isInstalled(QStringView theme) {
    return std::ranges::any_of(QIcon::themeSearchPaths(), [theme](const QString& path) {
        return QFileInfo::exists(path + u'/' + theme + QStringLiteral("/index.theme"));
    });
}

QPixmap centred(const QImage& image, int pixels, qreal scale) {
    if (image.isNull()) {
        return {};
    }
    QImage canvas(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.drawImage((pixels - image.width()) / 2, (pixels - image.height()) / 2, image);
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
    const QSize box(pixels, pixels);
    const bool isVector = reader.format() == "svg" || reader.format() == "svgz";
    if (isVector && !size.isEmpty()) {
        reader.setScaledSize(size.scaled(box, Qt::KeepAspectRatio));
        return centred(reader.read(), pixels, scale);
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        return {};
    }
    return centred(image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation), pixels, scale);
}

QPixmap loadThemeIcon(const QString& name, int points, qreal scale) {
    const QIcon icon = QIcon::fromTheme(name);
    if (icon.isNull()) {
        return {};
    }
    const QPixmap pixmap = icon.pixmap(QSize(points, points), scale);
    if (pixmap.isNull()) {
        return {};
    }
    const int pixels = qRound(points * scale);
    const QImage image = pixmap.toImage();
    if (image.width() == pixels && image.height() == pixels) {
        return pixmap;
    }
    return centred(
        image.scaled(QSize(pixels, pixels), Qt::KeepAspectRatio, Qt::SmoothTransformation), pixels,
        scale);
}

} // namespace

IconThemeImageLoader::IconThemeImageLoader() {
    const auto* const theme = std::ranges::find_if(widespreadThemes, isInstalled);
    if (theme != widespreadThemes.end()) {
        QIcon::setFallbackThemeName(theme->toString());
    }
}

QPixmap IconThemeImageLoader::load(const Image& image, int points, qreal scale) {
    switch (image.source) {
    case Image::Source::None:
        return {};
    case Image::Source::File:
        return loadFile(image.name, points, scale);
    case Image::Source::IconTheme:
        return loadThemeIcon(image.name, points, scale);
    case Image::Source::Symbol:
        return loadFile(QStringLiteral(":/symbols/%1.svg").arg(image.name), points, scale);
    }
    Q_UNREACHABLE();
}

} // namespace quorvantel::platform
