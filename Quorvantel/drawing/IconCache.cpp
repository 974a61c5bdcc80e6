#include "drawing/IconCache.h"

#include "shapes/PixelGrid.h"

#include <QPainter>

#include <algorithm>

namespace quorvantel {

namespace {

qsizetype costOf(const QPixmap& pixmap) {
    constexpr qsizetype entry = 512;
    return entry + qsizetype{pixmap.width()} * pixmap.height() * pixmap.depth() / 8;
}

} // namespace

IconCache::IconCache(platform::ImageLoader& loader, QObject* parent)
    : QObject(parent), m_loader(loader) {
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &IconCache::decodeNext);
}

std::optional<QPixmap> IconCache::pixmap(const platform::Image& image, int points, qreal scale) {
    const Key key{image, points, scale};
    if (const QPixmap* const found = m_pixmaps.object(key)) {
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
    if (const QPixmap* const found = m_pixmaps.object(key)) {
        return *found;
    }
    QPixmap pixmap = m_loader.load(image, points, scale);
    m_pixmaps.insert(key, new QPixmap(pixmap), costOf(pixmap));
    return pixmap;
}

void IconCache::refresh() {
    const bool haveIconsChanged = m_loader.refresh();
    for (const Key& key : m_pixmaps.keys()) {
        const bool isOutdated =
            haveIconsChanged && key.image.source == platform::Image::Source::IconTheme;
        if (isOutdated || m_pixmaps.object(key)->isNull()) {
            m_pixmaps.remove(key);
        }
    }
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
        icons.pixmapNow(symbol, qRound(frame.width()), painter.device()->devicePixelRatioF());
    if (!pixmap.isNull()) {
        painter.drawPixmap(PixelGrid::aligned(painter, frame).topLeft(), tinted(pixmap, color));
    }
}

} // namespace quorvantel
