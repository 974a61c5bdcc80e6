#pragma once

#include <QPaintEngine>
#include <QWidget>

#include <vector>

namespace quorvantel::testing {

/// A text as a widget draws it.
struct DrawnText {
    QString text;
    /// The height of its font in pixels.
    int size;
    QColor color;
    /// Where its first letter stands, in the widget.
    QPointF start;
};

/// A device that takes the texts and the places of the pictures down and leaves out the rest.
class DrawnTexts : public QPaintDevice {
public:
    explicit DrawnTexts(QWidget& widget) : m_widget(widget) {
        widget.render(this, {}, {}, QWidget::DrawChildren);
    }

    const std::vector<DrawnText>& texts() const { return m_engine.texts; }
    const std::vector<QRectF>& pictures() const { return m_engine.pictures; }

    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return m_widget.width();
        case PdmHeight:
            return m_widget.height();
        case PdmDevicePixelRatioScaled:
            return qRound(devicePixelRatioFScale());
        case PdmDevicePixelRatio:
        case PdmWidthMM:
        case PdmHeightMM:
            return 1;
        case PdmNumColors:
        case PdmDepth:
            return 32;
        default:
            return 96;
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice* /*device*/) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState& /*state*/) override {}
        void drawPath(const QPainterPath& /*path*/) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawPixmap(const QRectF& frame, const QPixmap&, const QRectF&) override {
            pictures.push_back(painter()->combinedTransform().mapRect(frame));
        }
        void drawTextItem(const QPointF& start, const QTextItem& item) override {
            texts.push_back({item.text(), item.font().pixelSize(), painter()->pen().color(),
                             painter()->combinedTransform().map(start)});
        }
        Type type() const override { return User; }

        std::vector<DrawnText> texts;
        std::vector<QRectF> pictures;
    };

    QWidget& m_widget;
    mutable Engine m_engine;
};

} // namespace quorvantel::testing
