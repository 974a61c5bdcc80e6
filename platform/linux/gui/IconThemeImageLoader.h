#pragma once

#include "platform/ImageLoader.h"

#include <QHash>

namespace quorvantel::platform {

/// Loads icons from the desktop's icon theme (Icon Theme Specification) and from files, and the
/// launcher's own symbols from its resources.
///
/// Every image is decoded once for a size and scale and then kept, the missing ones included, so
/// that drawing a row again touches no disk.
class IconThemeImageLoader : public ImageLoader {
public:
    QPixmap load(const Image& image, int points, qreal scale) override;

private:
    struct Key {
        Image::Source source;
        QString name;
        int points;
        qreal scale;

        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0) {
            return qHashMulti(seed, static_cast<int>(key.source), key.name, key.points, key.scale);
        }
    };

    QHash<Key, QPixmap> m_cache;
};

} // namespace quorvantel::platform
