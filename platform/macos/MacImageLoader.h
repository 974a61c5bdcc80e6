#pragma once

#include "platform/ImageLoader.h"

namespace quorvantel::platform {

/// Draws the icons that `NSWorkspace` has for files and the system's symbols, or the launcher's own
/// where this version of the system has none of that name. Keeps no images.
///
/// Icons of a theme, which this system does not have, are missing.
class MacImageLoader final : public ImageLoader {
public:
    QPixmap load(const Image& image, int points, qreal scale) override;
};

} // namespace quorvantel::platform
