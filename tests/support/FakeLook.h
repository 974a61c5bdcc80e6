#pragma once

#include "drawing/IconCache.h"
#include "platform/ImageLoader.h"
#include "platform/SystemAppearance.h"
#include "support/MemoryDefaults.h"
#include "theme/Contrast.h"
#include "theme/ThemedRoot.h"

#include <QImage>
#include <QPainter>

#include <utility>

namespace quorvantel::testing {

/// A desktop whose scheme the test chooses.
class FakeSystemAppearance : public platform::SystemAppearance {
public:
    bool prefersDark() const override { return isDark; }
    bool reducesTransparency() const override { return reduced; }
    bool increasesContrast() const override { return contrasts; }

    bool isDark = false;
    bool reduced = false;
    bool contrasts = false;
};

/// Images of one colour for every name; none for "missing". Counts what it decodes.
class FakeImageLoader : public platform::ImageLoader {
public:
    QPixmap load(const platform::Image& image, int points, qreal scale) override {
        ++loads;
        if (image.name == QStringLiteral("missing")) {
            ++misses;
            return {};
        }
        QPixmap pixmap(QSize(points, points) * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(image.isTemplate() ? Qt::black : Qt::red);
        return pixmap;
    }

    bool refresh() override { return std::exchange(hasChanged, false); }

    int loads = 0;
    int misses = 0;
    bool hasChanged = false;
};

/// What a fill looks like that is painted on an opaque background.
inline QColor painted(const ThemeColor& background, const ThemeColor& fill) {
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(background.toQColor());
    QPainter(&image).fillRect(0, 0, 1, 1, fill.toQColor());
    return image.pixelColor(0, 0);
}

/// The contrast of two opaque colours of a picture.
inline double contrast(const QColor& one, const QColor& other) {
    const auto opaque = [](const QColor& color) {
        return ThemeColor::bytes(color.red(), color.green(), color.blue(), 1);
    };
    return contrastRatio(opaque(one), opaque(other));
}

/// All that a view needs in order to draw.
struct FakeLook {
    MemoryDefaults defaults;
    ThemeManager manager{defaults};
    FakeSystemAppearance system;
    ThemedRoot theme{manager, system};
    FakeImageLoader loader;
    IconCache icons{loader};
};

} // namespace quorvantel::testing
