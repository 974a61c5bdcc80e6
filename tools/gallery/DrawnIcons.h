#pragma once

#include "platform/ImageLoader.h"
#include "platform/linux/gui/IconThemeImageLoader.h"

namespace quorvantel::gallery {

/// The icons of applications that do not exist, drawn here so that the gallery shows nobody's
/// artwork, and the launcher's own symbols.
class DrawnIcons : public platform::ImageLoader {
public:
    /// An icon theme name such as "terminal" gives the icon drawn for it; other names give none.
    QPixmap load(const platform::Image& image, int points, qreal scale) override;

private:
    platform::IconThemeImageLoader m_symbols;
};

} // namespace quorvantel::gallery
