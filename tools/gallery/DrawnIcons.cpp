#include "tools/gallery/DrawnIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace quorvantel::gallery {

namespace {

// All icons are drawn on a square of 100 units.
constexpr double side = 100;

QPen line(const QColor& color, double width) {
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void fillBlock(QPainter& painter, const QRectF& block, double radius, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(block, radius, radius);
}

void fillDisc(QPainter& painter, const QPointF& centre, double radius, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(centre, radius, radius);
}

void drawPrompt(QPainter& painter) {
    painter.setPen(line(QColor(0x7CE0B8), 9));
    painter.drawPolyline(QPolygonF{{24, 32}, {42, 50}, {24, 68}});
    painter.setPen(line(Qt::white, 9));
    painter.drawLine(QPointF(54, 69), QPointF(76, 69));
}

void drawDays(QPainter& painter) {
    painter.fillRect(QRectF(0, 0, side, 30), QColor(0xE5484D));
    for (int day = 0; day < 12; ++day) {
        const QPointF centre(23 + 18 * (day % 4), 46 + 18 * (day / 4));
        fillDisc(painter, centre, 5.5, day == 6 ? QColor(0xE5484D) : QColor(0xB4B9C2));
    }
}

void drawEnvelope(QPainter& painter) {
    fillBlock(painter, {18, 28, 64, 46}, 9, Qt::white);
    painter.setPen(line(QColor(0x2F7BEA), 5));
    painter.drawPolyline(QPolygonF{{23, 35}, {50, 55}, {77, 35}});
}

void drawNotes(QPainter& painter) {
    painter.setPen(line(Qt::white, 9));
    painter.drawPolyline(QPolygonF{{38, 70}, {38, 31}, {72, 24}, {72, 62}});
    fillDisc(painter, {30, 71}, 11, Qt::white);
    fillDisc(painter, {64, 63}, 11, Qt::white);
}

void drawPetals(QPainter& painter) {
    const QColor colors[] = {0xF2B233, 0xE8743B, 0xD9486E, 0x9A54C9, 0x4A74D8, 0x3AA6A0};
    int turn = 0;
    for (QColor color : colors) {
        color.setAlpha(215);
        painter.save();
        painter.translate(50, 50);
        painter.rotate(60.0 * turn++);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(QPointF(0, -21), 12.5, 19);
        painter.restore();
    }
}

void drawLens(QPainter& painter) {
    fillDisc(painter, {50, 52}, 30, QColor(0x23272E));
    fillDisc(painter, {50, 52}, 22, QColor(0x3B5B8C));
    fillDisc(painter, {50, 52}, 12, QColor(0x16202F));
    fillDisc(painter, {42, 44}, 5.5, QColor(0xBFD4F2));
    fillDisc(painter, {80, 20}, 5, QColor(0xF5C04A));
}

void drawKeys(QPainter& painter) {
    fillBlock(painter, {18, 16, 64, 18}, 5, QColor(0xC9D2DC));
    for (int key = 0; key < 9; ++key) {
        const QRectF block(18 + 23 * (key % 3), 42 + 15 * (key / 3), 18, 11);
        fillBlock(painter, block, 4, key % 3 == 2 ? QColor(0xF2994A) : QColor(0x78828F));
    }
}

void drawNotepad(QPainter& painter) {
    painter.fillRect(QRectF(0, 0, side, 28), QColor(0xF4C542));
    painter.setPen(line(QColor(0xC3C7CE), 5));
    for (const double y : {46.0, 62.0, 78.0}) {
        painter.drawLine(QPointF(20, y), QPointF(y > 70 ? 60 : 80, y));
    }
}

void drawMap(QPainter& painter) {
    painter.setPen(line(QColor(0xFFFFFF), 12));
    painter.drawPolyline(QPolygonF{{-5, 72}, {40, 58}, {105, 86}});
    painter.drawLine(QPointF(28, 60), QPointF(16, -5));
    QPainterPath pin;
    pin.moveTo(62, 66);
    pin.cubicTo(58, 54, 44, 50, 44, 35);
    pin.arcTo(QRectF(44, 17, 36, 36), 180, -180);
    pin.cubicTo(80, 50, 66, 54, 62, 66);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xE5484D));
    painter.drawPath(pin);
    fillDisc(painter, {62, 35}, 7, Qt::white);
}

void drawCode(QPainter& painter) {
    const double starts[] = {20, 32, 32, 44, 20};
    const double ends[] = {48, 76, 60, 80, 38};
    const QColor colors[] = {0xFFFFFF, 0xC7B8FF, 0xFFD48A, 0xC7B8FF, 0xFFFFFF};
    for (int row = 0; row < 5; ++row) {
        painter.setPen(line(colors[row], 7));
        const double y = 24 + 13 * row;
        painter.drawLine(QPointF(starts[row], y), QPointF(ends[row], y));
    }
}

void drawFolder(QPainter& painter) {
    fillBlock(painter, {18, 24, 34, 24}, 7, QColor(0xD7E9FF));
    fillBlock(painter, {18, 33, 64, 44}, 8, Qt::white);
}

void drawNeedle(QPainter& painter) {
    fillDisc(painter, {50, 50}, 35, Qt::white);
    painter.setBrush(QColor(0xE5484D));
    painter.drawPolygon(QPolygonF{{70, 30}, {56, 56}, {44, 44}});
    painter.setBrush(QColor(0x9AA3AF));
    painter.drawPolygon(QPolygonF{{30, 70}, {56, 56}, {44, 44}});
}

void drawBubble(QPainter& painter) {
    QPainterPath bubble;
    bubble.addRoundedRect(QRectF(18, 24, 64, 44), 20, 20);
    QPainterPath tail;
    tail.addPolygon(QPolygonF{{30, 58}, {26, 82}, {52, 66}});
    painter.fillPath(bubble.united(tail), Qt::white);
}

void drawTracks(QPainter& painter) {
    const double tops[] = {38, 22, 32, 18, 42};
    for (int bar = 0; bar < 5; ++bar) {
        painter.setPen(line(Qt::white, 8));
        const double x = 20 + 15 * bar;
        painter.drawLine(QPointF(x, tops[bar]), QPointF(x, side - tops[bar]));
    }
}

struct DrawnIcon {
    QStringView name;
    QRgb top;
    QRgb bottom;
    void (*drawEmblem)(QPainter&);
};

constexpr DrawnIcon drawnIcons[] = {
    {u"terminal", 0xFF3A404A, 0xFF1A1D22, drawPrompt},
    {u"calendar", 0xFFFFFFFF, 0xFFF1F2F4, drawDays},
    {u"mail", 0xFF55B2FB, 0xFF1E66DE, drawEnvelope},
    {u"music", 0xFFFF6F91, 0xFFE0305C, drawNotes},
    {u"photos", 0xFFFFFFFF, 0xFFEFF1F3, drawPetals},
    {u"camera", 0xFFD9DEE4, 0xFFA9B2BC, drawLens},
    {u"calculator", 0xFF4B535E, 0xFF2A2F36, drawKeys},
    {u"notes", 0xFFFFFFFF, 0xFFF4F3EE, drawNotepad},
    {u"maps", 0xFF9ED67C, 0xFF62B58F, drawMap},
    {u"code", 0xFF6C5CE0, 0xFF4531A8, drawCode},
    {u"files", 0xFF62B4F7, 0xFF2F80E0, drawFolder},
    {u"browser", 0xFF2FC6C0, 0xFF1477B8, drawNeedle},
    {u"chat", 0xFF67DB72, 0xFF27A84A, drawBubble},
    {u"recorder", 0xFFB36BF2, 0xFF6A35C9, drawTracks},
};

QPixmap draw(const DrawnIcon& icon, int points, qreal scale) {
    const int pixels = qRound(points * scale);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / side, pixels / side);
    QLinearGradient ground(0, 0, 0, side);
    ground.setColorAt(0, QColor::fromRgb(icon.top));
    ground.setColorAt(1, QColor::fromRgb(icon.bottom));
    painter.fillRect(QRectF(0, 0, side, side), ground);
    icon.drawEmblem(painter);
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

} // namespace

QPixmap DrawnIcons::load(const platform::Image& image, int points, qreal scale) {
    if (image.isTemplate()) {
        return m_symbols.load(image, points, scale);
    }
    for (const DrawnIcon& icon : drawnIcons) {
        if (icon.name == image.name) {
            return draw(icon, points, scale);
        }
    }
    return {};
}

} // namespace quorvantel::gallery
