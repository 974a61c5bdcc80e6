#pragma once

#include "platform/ImageLoader.h"

namespace quorvantel::platform {

/// Loads icons from the desktop's icon theme (Icon Theme Specification) and from files, and the
/// launcher's own symbols from its resources. Keeps nothing.
class IconThemeImageLoader : public ImageLoader {
public:
    QPixmap load(const Image& image, int points, qreal scale) override;
};

} // namespace quorvantel::platform
