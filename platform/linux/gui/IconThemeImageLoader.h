#pragma once

#include "platform/ImageLoader.h"

namespace quorvantel::platform {

/// Loads icons from the desktop's icon theme (Icon Theme Specification) and from files, and the
/// launcher's own symbols from its resources. Keeps nothing.
class IconThemeImageLoader : public ImageLoader {
public:
    /// A desktop that names no icon theme, as with a bare window manager, has only the icons that
    /// applications bring themselves; a widespread theme that is installed stands in for the rest.
    IconThemeImageLoader();

    QPixmap load(const Image& image, int points, qreal scale) override;
};

} // namespace quorvantel::platform
