#pragma once

#include "platform/ImageLoader.h"

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QTimer>

#include <deque>
#include <optional>

class QPainter;

namespace quorvantel {

/// Decodes icons once and keeps them, without ever holding up a paint.
///
/// What is not there yet is decoded when the event loop is idle, one image a turn, so that a
/// keystroke never waits for more than one. Missing images are kept as null pixmaps. Of the pixmaps
/// those that were not asked for longest go when `capacity` is reached, which is some thirty times
/// what a screen shows. Main thread only.
class IconCache : public QObject {
    Q_OBJECT

public:
    /// In bytes of pixels and of what it takes to keep them.
    static constexpr qsizetype capacity = qsizetype{8} * 1024 * 1024;

    /// `loader` must outlive the cache.
    explicit IconCache(platform::ImageLoader& loader, QObject* parent = nullptr);

    /// The image at `points` × `points` for a screen of the given scale, null when it is missing;
    /// absent while it is not decoded yet, in which case `decoded` follows.
    std::optional<QPixmap> pixmap(const platform::Image& image, int points, qreal scale);

    /// Like `pixmap`, but decodes at once: for the few symbols of the interface itself.
    QPixmap pixmapNow(const platform::Image& image, int points, qreal scale);

    /// Has images that were missing looked for again, and those of the icon theme when the theme or
    /// its icons changed.
    void refresh();

Q_SIGNALS:
    void decoded(const platform::Image& image);

private:
    struct Key {
        platform::Image image;
        int points;
        qreal scale;

        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0) {
            return qHashMulti(seed, static_cast<int>(key.image.source), key.image.name, key.points,
                              key.scale);
        }
    };

    void decodeNext();

    platform::ImageLoader& m_loader;
    QCache<Key, QPixmap> m_pixmaps{capacity};
    std::deque<Key> m_waiting;
    QTimer m_idle;
};

/// The pixmap with every pixel in `color`, keeping its alpha: how a template image is shown.
QPixmap tinted(const QPixmap& templateImage, const QColor& color);

/// Draws a template image of the interface itself in `color`, sharp in a square frame; nothing when
/// the image is missing.
void drawSymbol(QPainter& painter, IconCache& icons, const platform::Image& symbol,
                const QRectF& frame, const QColor& color);

} // namespace quorvantel
