#include "platform/linux/gui/PanelShadow.h"

#include "shapes/ContinuousCorners.h"

#include <QPainter>

#include <array>
#include <utility>
#include <vector>

namespace quorvantel::platform {

namespace {

/// How far the shadow reaches beyond the panel, and how far it falls, in points.
constexpr int reach = 36;
constexpr int fall = 10;
constexpr double darkness = 0.34;

/// Three box blurs come close to a Gaussian one; together they reach three radii far.
constexpr int blurPasses = 3;

/// Averages each value of a line of values, `stride` apart, with its neighbours up to `radius`.
void boxBlurLine(uchar* line, int count, qsizetype stride, int radius,
                 std::vector<uchar>& scratch) {
    scratch.resize(static_cast<std::size_t>(count));
    int sum = 0;
    const auto at = [&](int index) {
        return index >= 0 && index < count ? line[index * stride] : 0;
    };
    for (int index = -radius; index < radius; ++index) {
        sum += at(index);
    }
    for (int index = 0; index < count; ++index) {
        sum += at(index + radius);
        scratch[static_cast<std::size_t>(index)] = static_cast<uchar>(sum / (2 * radius + 1));
        sum -= at(index - radius);
    }
    for (int index = 0; index < count; ++index) {
        line[index * stride] = scratch[static_cast<std::size_t>(index)];
    }
}

void blur(QImage& alpha, int radius) {
    std::vector<uchar> scratch;
    const qsizetype bytesPerLine = alpha.bytesPerLine();
    for (int pass = 0; pass < blurPasses; ++pass) {
        for (int y = 0; y < alpha.height(); ++y) {
            boxBlurLine(alpha.scanLine(y), alpha.width(), 1, radius, scratch);
        }
        for (int x = 0; x < alpha.width(); ++x) {
            boxBlurLine(alpha.bits() + x, alpha.height(), bytesPerLine, radius, scratch);
        }
    }
}

/// Draws the nine parts of the stencil so that its corners keep their size.
void drawNineParts(QPainter& painter, const QImage& stencil, const QRect& target, int corner) {
    const qreal scale = stencil.devicePixelRatio();
    const QSize size = stencil.deviceIndependentSize().toSize();
    const auto parts = [corner](int start, int length) {
        return std::array{std::pair{start, corner}, std::pair{start + corner, length - 2 * corner},
                          std::pair{start + length - corner, corner}};
    };
    const auto targetColumns = parts(target.x(), target.width());
    const auto targetRows = parts(target.y(), target.height());
    const auto sourceColumns = parts(0, size.width());
    const auto sourceRows = parts(0, size.height());
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const QRectF to(targetColumns[column].first, targetRows[row].first,
                            targetColumns[column].second, targetRows[row].second);
            const QRectF from(sourceColumns[column].first * scale, sourceRows[row].first * scale,
                              sourceColumns[column].second * scale, sourceRows[row].second * scale);
            painter.drawImage(to, stencil, from);
        }
    }
}

/// The shadow of a panel of the given size in points, as premultiplied pixels for the given scale:
/// transparent where the panel itself is.
QImage shadowImage(const QSize& panel, int cornerRadius, qreal scale) {
    const QMargins margins = PanelShadow::margins();
    const QRect frame(QPoint(margins.left(), margins.top()), panel);
    const QSize size = frame.marginsAdded(margins).size();
    QImage shape(size * scale, QImage::Format_Alpha8);
    shape.setDevicePixelRatio(scale);
    shape.fill(0);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(darkness);
    painter.fillPath(continuousRoundedRect(frame.translated(0, fall), cornerRadius), Qt::black);
    painter.end();
    blur(shape, qRound(reach * scale / blurPasses));

    QImage shadow(shape.size(), QImage::Format_ARGB32_Premultiplied);
    shadow.setDevicePixelRatio(scale);
    shadow.fill(Qt::black);
    painter.begin(&shadow);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(QPoint(), shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(continuousRoundedRect(frame, cornerRadius), Qt::black);
    return shadow;
}

} // namespace

QMargins PanelShadow::margins() {
    return {reach, reach - fall, reach, reach + fall};
}

void PanelShadow::paint(QPainter& painter, const QRect& panel) {
    const qreal scale = painter.device()->devicePixelRatioF();
    // The corner tiles of the stencil: beyond them the edges are straight.
    const int corner = reach * 2 + m_cornerRadius * 2;
    const QRect target = panel.marginsAdded(margins());
    const int smallest = 2 * corner + 2 - margins().top() - margins().bottom();
    if (panel.height() < smallest) {
        // A low panel has no straight edges at its sides.
        painter.drawImage(target.topLeft(), stencil(panel.size(), scale));
    } else {
        drawNineParts(painter, stencil(QSize(smallest, smallest), scale), target, corner);
    }
}

const QImage& PanelShadow::stencil(const QSize& panel, qreal scale) {
    if (m_stencilScale != scale) {
        m_stencils.clear();
        m_stencilScale = scale;
    }
    const auto found = m_stencils.constFind(panel.height());
    if (found != m_stencils.constEnd()) {
        return *found;
    }
    return *m_stencils.insert(panel.height(), shadowImage(panel, m_cornerRadius, scale));
}

} // namespace quorvantel::platform
