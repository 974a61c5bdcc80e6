#pragma once

#include "platform/ImageLoader.h"
#include "platform/linux/gui/IconThemes.h"

namespace quorvantel::platform {

/// Loads icons from the desktop's icon theme (Icon Theme Specification) and from files, and the
/// launcher's own symbols from its resources. Keeps no images.
class IconThemeImageLoader : public ImageLoader {
public:
    explicit IconThemeImageLoader(IconThemes::DesktopTheme desktopTheme = {});

    QPixmap load(const Image& image, int points, qreal scale) override;
    bool refresh() override;

private:
    IconThemes m_themes;
};

} // namespace quorvantel::platform
