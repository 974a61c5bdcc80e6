#include "drawing/IconCache.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

class CountingLoader : public platform::ImageLoader {
public:
    QPixmap load(const platform::Image& image, int points, qreal scale) override {
        ++loads[image.name];
        QPixmap pixmap(QSize(points, points) * scale);
        pixmap.setDevicePixelRatio(scale);
        return pixmap;
    }

    QHash<QString, int> loads;
};

TEST(IconCacheTest, ForgetsIconsOfLongAgoButNoneThatIsOnShow) {
    constexpr int points = 28;
    constexpr qreal scale = 2;
    constexpr qsizetype pixels = qsizetype{56} * 56 * 4;
    CountingLoader loader;
    IconCache icons(loader);
    const auto shown = platform::Image::iconTheme(QStringLiteral("shown"));
    const auto passing = [](qsizetype number) {
        return platform::Image::file(QStringLiteral("/icon%1.png").arg(number));
    };
    for (qsizetype number = 0; number <= IconCache::capacity / pixels; ++number) {
        icons.pixmapNow(passing(number), points, scale);
        icons.pixmapNow(shown, points, scale);
    }
    EXPECT_EQ(loader.loads[shown.name], 1);
    EXPECT_FALSE(icons.pixmap(passing(0), points, scale));
    EXPECT_TRUE(icons.pixmap(passing(IconCache::capacity / pixels), points, scale));
}

} // namespace
} // namespace quorvantel
