#include "platform/linux/gui/DrawingCost.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace quorvantel::platform {

namespace {

/// Beyond twice as many pixels Qt intersects outlines with one another to clip them.
constexpr double maximumReach = 16'000;
/// What begins and ends a dash, or joins two lines, besides the pixels of a stroke's width.
constexpr double costOfDash = 8;
constexpr double costOfGlyph = 500;

/// Adds up the cost of what is drawn.
class CostEngine final : public QPaintEngine {
public:
    CostEngine() : QPaintEngine(AllFeatures) {}

    double cost() const { return m_cost; }

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& state) override {
        if (state.state().testFlag(DirtyTransform)) {
            m_transform = state.transform();
        }
        if (state.state().testFlag(DirtyPen)) {
            m_pen = state.pen();
        }
    }

    void drawPath(const QPainterPath& path) override {
        Outline outline;
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPainterPath::Element element = path.elementAt(i);
            outline.add(m_transform.map(QPointF(element)), element.isMoveTo());
        }
        m_cost += costOf(outline);
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode /*mode*/) override {
        Outline outline;
        for (int i = 0; i < count; ++i) {
            outline.add(m_transform.map(points[i]), i == 0);
        }
        m_cost += costOf(outline);
    }

    void drawPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/,
                    const QRectF& /*source*/) override {}
    void drawImage(const QRectF& /*target*/, const QImage& /*image*/, const QRectF& /*source*/,
                   Qt::ImageConversionFlags /*flags*/) override {}

    void drawTextItem(const QPointF& /*position*/, const QTextItem& item) override {
        m_cost += costOfGlyph * static_cast<double>(item.text().size());
    }

private:
    /// Lines and the control points of curves, which are no shorter than the curves.
    struct Outline {
        double points = 0;
        double length = 0;
        double reach = 0;
        QPointF last;

        void add(const QPointF& point, bool isStart) {
            const QPointF step = point - last;
            length += isStart ? 0 : std::hypot(step.x(), step.y());
            reach = std::max({reach, std::abs(point.x()), std::abs(point.y())});
            last = point;
            ++points;
        }
    };

    double costOf(const Outline& outline) const {
        double width = 0;
        double stroke = 0;
        if (m_pen.style() != Qt::NoPen) {
            const double scale = m_pen.isCosmetic() ? 1 : largestScale();
            const double unit = scale * std::max(m_pen.widthF(), 1e-6);
            width = scale * m_pen.widthF();
            const double parts = outline.points + dashesIn(outline.length / unit);
            stroke = 2 * outline.length + parts * (costOfDash + 4 * width);
        }
        const double spike =
            m_pen.joinStyle() == Qt::RoundJoin || m_pen.joinStyle() == Qt::BevelJoin
                ? 1
                : std::max(m_pen.miterLimit(), 1.0);
        // Not the other way round: what is no number is too far.
        return outline.reach + width * spike < maximumReach
                   ? outline.points + outline.length + stroke
                   : std::numeric_limits<double>::infinity();
    }

    /// The dashes along so many widths of the pen.
    double dashesIn(double widths) const {
        const QList<qreal> pattern = m_pen.dashPattern();
        const double period = std::accumulate(pattern.begin(), pattern.end(), 0.0);
        return pattern.isEmpty() ? 0 : static_cast<double>(pattern.size()) * widths / period;
    }

    double largestScale() const {
        return std::max(std::hypot(m_transform.m11(), m_transform.m12()),
                        std::hypot(m_transform.m21(), m_transform.m22()));
    }

    double m_cost = 0;
    QTransform m_transform;
    QPen m_pen;
};

/// Something of a size to draw on.
class CostDevice final : public QPaintDevice {
public:
    explicit CostDevice(const QSize& size) : m_size(size) {}

    double cost() const { return m_engine.cost(); }
    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmDepth:
            return 32;
        default:
            return 96;
        }
    }

private:
    QSize m_size;
    mutable CostEngine m_engine;
};

} // namespace

double drawingCost(QSvgRenderer& image, const QSize& size) {
    CostDevice device(size);
    QPainter painter(&device);
    image.render(&painter);
    return device.cost();
}

} // namespace quorvantel::platform
