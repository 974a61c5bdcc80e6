#include "tools/gallery/Backdrop.h"

#include "shapes/ContinuousCorners.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>
#include <vector>

namespace quorvantel::gallery {

namespace {

/// Room around the window in points, enough for its shadow.
constexpr int margin = 56;

struct Shadow {
    double offset; ///< Downward, in points.
    double blur;   ///< The reach of the soft edge, in points.
    double opacity;
};

std::vector<Shadow> shadowsFor(ColorScheme scheme) {
    if (scheme == ColorScheme::Light) {
        return {{14, 36, 0.24}, {2, 6, 0.12}};
    }
    return {{14, 36, 0.50}, {2, 6, 0.30}};
}

QSizeF pointsOf(const QImage& image) {
    return image.deviceIndependentSize();
}

QImage canvasFor(const QImage& window) {
    const int pixels = qRound(2 * margin * window.devicePixelRatio());
    QImage canvas(window.size() + QSize(pixels, pixels), QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(window.devicePixelRatio());
    canvas.fill(Qt::transparent);
    return canvas;
}

/// One pass of a box blur over a line of bytes, of which `stride` lie between neighbours.
void blurLine(uchar* line, int count, qsizetype stride, int radius) {
    std::vector<int> sums(static_cast<std::size_t>(count) + 1, 0);
    for (int i = 0; i < count; ++i) {
        sums[static_cast<std::size_t>(i) + 1] =
            sums[static_cast<std::size_t>(i)] + line[i * stride];
    }
    for (int i = 0; i < count; ++i) {
        const auto first = static_cast<std::size_t>(std::max(0, i - radius));
        const auto end = static_cast<std::size_t>(std::min(count, i + radius + 1));
        line[i * stride] = static_cast<uchar>((sums[end] - sums[first]) / (2 * radius + 1));
    }
}

/// Three box blurs, which come close to a Gaussian one.
void blur(QImage& alpha, int reach) {
    const int radius = std::max(1, reach / 3);
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < alpha.height(); ++y) {
            blurLine(alpha.scanLine(y), alpha.width(), 1, radius);
        }
        for (int x = 0; x < alpha.width(); ++x) {
            blurLine(alpha.bits() + x, alpha.height(), alpha.bytesPerLine(), radius);
        }
    }
}

void drawShadow(QImage& canvas, const QPainterPath& outline, const Shadow& shadow) {
    QImage shape(canvas.size(), QImage::Format_Alpha8);
    shape.setDevicePixelRatio(canvas.devicePixelRatio());
    shape.fill(0);
    QPainter shapePainter(&shape);
    shapePainter.setRenderHint(QPainter::Antialiasing);
    shapePainter.fillPath(outline.translated(0, shadow.offset), Qt::black);
    shapePainter.end();
    blur(shape, qRound(shadow.blur * canvas.devicePixelRatio()));

    QPainter painter(&canvas);
    painter.setOpacity(shadow.opacity);
    painter.drawImage(QPointF(), shape);
}

void drawGlow(QPainter& painter, const QPointF& centre, double radius, const QColor& color) {
    QRadialGradient glow(centre, radius);
    QColor clear = color;
    clear.setAlpha(0);
    glow.setColorAt(0, color);
    glow.setColorAt(1, clear);
    painter.fillRect(painter.window(), glow);
}

void drawDesktop(QImage& canvas, ColorScheme scheme) {
    const bool isLight = scheme == ColorScheme::Light;
    QPainter painter(&canvas);
    const QSizeF size = pointsOf(canvas);
    QLinearGradient ground(0, 0, 0, size.height());
    ground.setColorAt(0, isLight ? QColor(0xE9EDF1) : QColor(0x3A414B));
    ground.setColorAt(1, isLight ? QColor(0xCDD5DE) : QColor(0x232830));
    painter.fillRect(QRectF({}, size), ground);
    drawGlow(painter, {size.width() * 0.15, size.height() * 0.1}, size.width() * 0.6,
             isLight ? QColor(255, 255, 255, 150) : QColor(96, 124, 138, 90));
    drawGlow(painter, {size.width() * 0.9, size.height()}, size.width() * 0.6,
             isLight ? QColor(150, 186, 190, 110) : QColor(30, 92, 96, 90));
}

} // namespace

QImage pictureOf(QWidget& widget) {
    const qreal scale = widget.devicePixelRatioF();
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

QImage withShadow(const QImage& window, double cornerRadius, ColorScheme scheme) {
    QImage canvas = canvasFor(window);
    const QPainterPath outline =
        continuousRoundedRect(QRectF({margin, margin}, pointsOf(window)), cornerRadius);
    for (const Shadow& shadow : shadowsFor(scheme)) {
        drawShadow(canvas, outline, shadow);
    }
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    // A window casts its shadow around it, not behind what shows through it.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outline, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage(QPointF(margin, margin), window);
    return canvas;
}

QImage onBackdrop(const QImage& window, double cornerRadius, ColorScheme scheme) {
    QImage canvas = canvasFor(window);
    drawDesktop(canvas, scheme);
    QPainter(&canvas).drawImage(QPointF(), withShadow(window, cornerRadius, scheme));
    return canvas.convertToFormat(QImage::Format_RGB32);
}

} // namespace quorvantel::gallery
