#pragma once

#include <QImage>
#include <QPaintEngine>
#include <QWidget>

#include <vector>

namespace quorvantel::testing {

/// What a widget draws: its texts, and where its pictures are. All else is left out.
class DrawnTexts : public QImage {
public:
    struct Text {
        QString text;
        int size; ///< Of its font, in pixels.
        int weight;
        QColor color;
        QPointF start; ///< Of its baseline.
    };

    explicit DrawnTexts(QWidget& widget) : QImage(widget.size(), Format_ARGB32_Premultiplied) {
        widget.render(this, {}, {}, QWidget::DrawChildren);
    }

    const std::vector<Text>& texts() const { return m_engine.texts; }
    const std::vector<QRectF>& pictures() const { return m_engine.pictures; }
    QPaintEngine* paintEngine() const override { return &m_engine; }

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
            texts.push_back({item.text(), item.font().pixelSize(), item.font().weight(),
                             painter()->pen().color(), painter()->combinedTransform().map(start)});
        }
        Type type() const override { return User; }

        std::vector<Text> texts;
        std::vector<QRectF> pictures;
    };

    mutable Engine m_engine;
};

} // namespace quorvantel::testing
