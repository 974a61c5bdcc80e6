#include "drawing/IconCache.h"

#include "drawing/PixelGrid.h"

#include <QPainter>

#include <algorithm>

namespace quorvantel {

IconCache::IconCache(platform::ImageLoader& loader, QObject* parent)
    : QObject(parent), m_loader(loader) {
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &IconCache::decodeNext);
}

std::optional<QPixmap> IconCache::pixmap(const platform::Image& image, int points, qreal scale) {
    const Key key{image, points, scale};
    const auto found = m_pixmaps.constFind(key);
    if (found != m_pixmaps.constEnd()) {
        return *found;
    }
    if (std::ranges::find(m_waiting, key) == m_waiting.end()) {
        m_waiting.push_back(key);
        m_idle.start();
    }
    return std::nullopt;
}

QPixmap IconCache::pixmapNow(const platform::Image& image, int points, qreal scale) {
    const Key key{image, points, scale};
    const auto found = m_pixmaps.constFind(key);
    if (found != m_pixmaps.constEnd()) {
        return *found;
    }
    return *m_pixmaps.insert(key, m_loader.load(image, points, scale));
}

void IconCache::refresh() {
    const bool haveIconsChanged = m_loader.refresh();
    m_pixmaps.removeIf([haveIconsChanged](const auto& entry) {
        return entry.value().isNull() ||
               (haveIconsChanged && entry.key().image.source == platform::Image::Source::IconTheme);
    });
}

void IconCache::decodeNext() {
    if (m_waiting.empty()) {
        m_idle.stop();
        return;
    }
    const Key key = m_waiting.front();
    m_waiting.pop_front();
    pixmapNow(key.image, key.points, key.scale);
    Q_EMIT decoded(key.image);
}

QPixmap tinted(const QPixmap& templateImage, const QColor& color) {
    QPixmap result = templateImage;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), templateImage.deviceIndependentSize()), color);
    return result;
}

void drawSymbol(QPainter& painter, IconCache& icons, const platform::Image& symbol,
                const QRectF& frame, const QColor& color) {
    const QPixmap pixmap =
        icons.pixmapNow(symbol, qRound(frame.width()), PixelGrid::scale(painter));
    if (!pixmap.isNull()) {
        painter.drawPixmap(PixelGrid::aligned(painter, frame).topLeft(), tinted(pixmap, color));
    }
}

} // namespace quorvantel
