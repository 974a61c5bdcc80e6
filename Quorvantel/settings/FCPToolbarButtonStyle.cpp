#include "settings/FCPToolbarButtonStyle.h"

#include "drawing/Motion.h"
#include "settings/FocusRing.h"
#include "theme/ControlColors.h"
#include "theme/EaseInOut.h"
#include "theme/InterfaceFont.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace quorvantel {

namespace {

constexpr int fontSize = 13;
constexpr int symbolSize = 15;
constexpr int symbolSpacing = 6;
constexpr int horizontalPadding = 8;
constexpr int verticalPadding = 6;
constexpr double cornerRadius = 4;
constexpr double pressedScale = 0.95;
constexpr int pressMilliseconds = 100;
constexpr Spring onSpring{.response = 0.3, .dampingFraction = 0.5};
constexpr double tolerance = 0.001;

const QColor offFill(142, 142, 147, 51);
const QColor shade(0, 0, 0, 51);

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto mix = [share](float a, float b) {
        return a + static_cast<float>(std::clamp(share, 0.0, 1.0)) * (b - a);
    };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()), mix(from.alphaF(), to.alphaF()));
}

} // namespace

FCPToolbarButtonStyle::FCPToolbarButtonStyle(const QString& label, platform::Image symbol,
                                             const ThemedRoot& theme, IconCache& icons,
                                             QWidget* parent)
    : ThemedButton(label, theme, parent),
      m_symbol(std::move(symbol)),
      m_icons(icons),
      m_isOn(onSpring, tolerance) {
    m_press.setStartValue(0.0);
    m_press.setEndValue(1.0);
    m_press.setEasingCurve(easeInOut());
    connect(&m_press, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_isOn, &SpringAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(this, &QPushButton::pressed, this, &FCPToolbarButtonStyle::animatePress);
    connect(this, &QPushButton::released, this, &FCPToolbarButtonStyle::animatePress);
}

void FCPToolbarButtonStyle::setOn(bool isOn) {
    if (isVisible() && isAnimated(*this)) {
        m_isOn.moveTo(isOn ? 1 : 0);
    } else {
        m_isOn.jumpTo(isOn ? 1 : 0);
    }
}

void FCPToolbarButtonStyle::animatePress() {
    m_press.setDirection(isDown() ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    m_press.setDuration(isAnimated(*this) ? pressMilliseconds : 0);
    m_press.start();
}

QSize FCPToolbarButtonStyle::sizeHint() const {
    const QFontMetrics metrics(interfaceFont(fontSize));
    const int symbolWidth = m_symbol.isNull() ? 0 : symbolSize + symbolSpacing;
    return {metrics.horizontalAdvance(text()) + symbolWidth + 2 * horizontalPadding,
            std::max(metrics.height(), symbolSize) + 2 * verticalPadding};
}

void FCPToolbarButtonStyle::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const StyledLabel label{
        {text(), m_symbol, m_press.currentValue().toDouble()}, m_isOn.value(), theme(), m_icons};
    label.draw(painter, rect());
    if (showsFocus(*this)) {
        drawFocusRing(painter, rect(), cornerRadius, controlColors(theme()).accent);
    }
}

void FCPToolbarButtonStyle::StyledLabel::draw(QPainter& painter, const QRectF& frame) const {
    painter.save();
    const double scale = 1 - configuration.pressed * (1 - pressedScale);
    painter.translate(frame.center());
    painter.scale(scale, scale);
    painter.translate(-frame.center());

    QPainterPath outline;
    outline.addRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.fillPath(outline, mixed(offFill, theme.accent.toQColor(), isOn));
    painter.setPen(QPen(shade, 1));
    painter.drawPath(outline);

    const QColor color = mixed(theme.primaryText.toQColor(), Qt::white, isOn);
    QRectF content = frame.adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    if (!configuration.symbol.isNull()) {
        drawSymbol(painter, icons, configuration.symbol,
                   {content.left(), frame.center().y() - symbolSize / 2.0, symbolSize, symbolSize},
                   color);
        content.setLeft(content.left() + symbolSize + symbolSpacing);
    }
    painter.setFont(interfaceFont(fontSize));
    painter.setPen(color);
    painter.drawText(content, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     configuration.text);

    QColor cover = shade;
    cover.setAlphaF(cover.alphaF() * static_cast<float>(configuration.pressed));
    painter.fillPath(outline, cover);
    painter.restore();
}

} // namespace quorvantel
