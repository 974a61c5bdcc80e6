#include "tools/gallery/SymbolScenes.h"

#include "drawing/IconCache.h"
#include "platform/linux/gui/IconThemeImageLoader.h"
#include "shapes/ContinuousCorners.h"
#include "theme/ResolvedTheme.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>

namespace quorvantel::gallery {

namespace {

constexpr int columns = 8;
constexpr int cellWidth = 112;
constexpr int cellHeight = 76;
constexpr int padding = 12;
constexpr int tileSize = 28;
constexpr int tileRadius = 7;
constexpr int glyphSize = 17;
constexpr int largeSize = 48;
constexpr int edge = 24;

QPixmap glyph(const QString& symbol, int points, const ThemeColor& color) {
    platform::IconThemeImageLoader loader;
    const auto image = platform::Image::symbol(symbol, {});
    return tinted(loader.load(image, points, qGuiApp->devicePixelRatio()), color.toQColor());
}

void drawCell(QPainter& painter, const QPoint& corner, const QString& symbol,
              const ResolvedTheme& theme) {
    painter.drawPixmap(corner, glyph(symbol, largeSize, theme.primaryText));
    const QRect tile(corner.x() + largeSize + padding, corner.y() + (largeSize - tileSize) / 2,
                     tileSize, tileSize);
    painter.fillPath(continuousRoundedRect(tile, tileRadius), theme.elevatedBackground.toQColor());
    const double inset = (tileSize - glyphSize) / 2.0;
    painter.drawPixmap(tile.topLeft() + QPointF(inset, inset),
                       glyph(symbol, glyphSize, theme.accent));
}

QImage contactSheet(ColorScheme scheme) {
    const ResolvedTheme theme = resolve(scheme, ThemePreset::Graphite);
    const QStringList files = QDir(QStringLiteral(":/symbols")).entryList();
    const int rows = (static_cast<int>(files.size()) + columns - 1) / columns;
    const qreal scale = qGuiApp->devicePixelRatio();
    const QSize lastCell(largeSize + padding + tileSize, largeSize);
    const QSize size((columns - 1) * cellWidth + lastCell.width() + 2 * edge,
                     (rows - 1) * cellHeight + lastCell.height() + 2 * edge);
    QImage sheet((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    sheet.setDevicePixelRatio(scale);
    sheet.fill(theme.primaryBackground.toQColor());
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    int index = 0;
    for (const QString& file : files) {
        const QPoint corner(edge + index % columns * cellWidth,
                            edge + index / columns * cellHeight);
        drawCell(painter, corner, file.chopped(4), theme);
        ++index;
    }
    return sheet;
}

} // namespace

std::vector<Scene> symbolScenes() {
    return {
        {QStringLiteral("symbols-light"), [] { return contactSheet(ColorScheme::Light); },
         Scene::Scales::All},
        {QStringLiteral("symbols-dark"), [] { return contactSheet(ColorScheme::Dark); }},
    };
}

} // namespace quorvantel::gallery
