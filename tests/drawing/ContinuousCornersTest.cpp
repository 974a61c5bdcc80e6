#include "shapes/ContinuousCorners.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>

namespace quorvantel {
namespace {

constexpr double radius = 12;

/// Curves are flattened before they are scaled.
constexpr int curveTolerance = 4;

/// At scales that put edges between pixels: where a rectangle of whole points lies on a screen,
/// and the pixels that it is to cover.
struct Placement {
    double scale;
    QRectF points;
    QRect pixels;
};

const Placement placements[] = {
    {1, {3, 5, 90, 61}, {3, 5, 90, 61}},      {1.25, {3, 5, 90, 61}, {4, 6, 112, 77}},
    {1.5, {0, 0, 90, 61}, {0, 0, 135, 92}},   {1.5, {6, 63, 90, 48}, {9, 95, 135, 72}},
    {1.75, {3, 5, 90, 61}, {5, 9, 158, 107}}, {2, {3, 5, 90, 61}, {6, 10, 180, 122}},
};

const QColor colors[] = {QColor(0x16, 0x17, 0x19), QColor(20, 184, 166, 64)};

QImage drawn(double scale, const std::function<void(QPainter&)>& draw) {
    QImage image(200, 200, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

/// The most that any channel of any pixel differs.
int difference(const QImage& a, const QImage& b) {
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor one = a.pixelColor(x, y);
            const QColor other = b.pixelColor(x, y);
            most = std::max({most, std::abs(one.red() - other.red()),
                             std::abs(one.green() - other.green()),
                             std::abs(one.blue() - other.blue())});
        }
    }
    return most;
}

TEST(ContinuousCornersTest, WhatIsDrawnInPiecesHasNoSeamsAndEndsWithAPixelAtEveryScale) {
    const std::map<double, int> widths{{1, 1}, {1.25, 1}, {1.5, 1}, {1.75, 2}, {2, 2}};
    for (const auto& [scale, points, pixels] : placements) {
        for (const QColor& color : colors) {
            const QImage fill = drawn(scale, [&](QPainter& painter) {
                fillContinuousRoundedRect(painter, points, radius, color);
            });
            const QImage wholeFill = drawn(1, [&](QPainter& painter) {
                painter.fillPath(continuousRoundedRect(pixels, radius * scale), color);
            });
            EXPECT_LE(difference(fill, wholeFill), 1) << scale << color.alpha();

            const QImage line = drawn(scale, [&](QPainter& painter) {
                strokeContinuousRoundedRect(painter, points, radius, color);
            });
            const QImage wholeLine = drawn(1, [&](QPainter& painter) {
                const double inset = widths.at(scale) / 2.0;
                const QRectF middle = QRectF(pixels).adjusted(inset, inset, -inset, -inset);
                painter.strokePath(continuousRoundedRect(middle, radius * scale - inset),
                                   QPen(color, widths.at(scale)));
            });
            EXPECT_LE(difference(line, wholeLine), curveTolerance) << scale << color.alpha();
        }
    }
}

TEST(ContinuousCornersTest, ARegionHoldsThePointsWhoseMiddleIsInside) {
    for (const QRect& rectangle : {QRect(3, 5, 90, 61), QRect(0, 0, 30, 20)}) {
        const QRegion region = continuousRoundedRegion(rectangle, radius);
        const QPainterPath outline = continuousRoundedRect(rectangle, radius);
        QRegion expected;
        for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
            for (int x = rectangle.left(); x <= rectangle.right(); ++x) {
                if (outline.contains(QPointF(x + 0.5, y + 0.5))) {
                    expected += QRect(x, y, 1, 1);
                }
            }
        }
        EXPECT_EQ(region, expected);
    }
}

TEST(ContinuousCornersTest, DrawingStaysInsideTheCallersClip) {
    const QRectF all(20, 20, 100, 100);
    const QRect clip(40, 10, 30, 180);
    const QImage image = drawn(1, [&](QPainter& painter) {
        painter.setClipRect(clip);
        fillContinuousRoundedRect(painter, all, radius, Qt::black);
        strokeContinuousRoundedRect(painter, all, radius, Qt::red);
    });
    QImage outside = image;
    QPainter(&outside).fillRect(clip, Qt::white);
    EXPECT_EQ(difference(outside, drawn(1, [](QPainter&) {})), 0);
    EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::black));
}

} // namespace
} // namespace quorvantel
