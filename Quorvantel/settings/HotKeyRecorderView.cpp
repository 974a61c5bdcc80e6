#include "settings/HotKeyRecorderView.h"

#include "drawing/Motion.h"
#include "settings/FocusRing.h"
#include "shapes/ContinuousCorners.h"
#include "theme/ControlColors.h"
#include "theme/EaseInOut.h"
#include "theme/InterfaceFont.h"

#include <QPainter>
#include <QWindow>

#include <chrono>

namespace quorvantel {

namespace {

using namespace std::chrono_literals;

constexpr QSize fieldSize(240, 34);
constexpr double cornerRadius = 7;
constexpr int horizontalPadding = 12;
constexpr int fontSize = 13;
constexpr int glyphSize = 13;
constexpr double indicatorSize = 8;
constexpr int indicatorSpacing = 8;
constexpr double faintestPulse = 0.25;
constexpr std::chrono::milliseconds pulseDuration = 1400ms;

constexpr double idleTint = 0.06;
constexpr double hoverTint = 0.08;
constexpr double recordingTint = 0.1;

ThemeColor withOpacity(ThemeColor color, double opacity) {
    color.opacity = opacity;
    return color;
}

} // namespace

HotKeyRecorderView::HotKeyRecorderView(AppSettings& settings, HotKeyService& hotKey,
                                       platform::KeyCapture& keyCapture, const ThemedRoot& theme,
                                       IconCache& icons, QWidget* parent)
    : ThemedButton({}, theme, parent),
      m_settings(settings),
      m_hotKey(hotKey),
      m_keyCapture(keyCapture),
      m_icons(icons) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Summon hotkey"));
    m_pulse.setStartValue(1.0);
    m_pulse.setEndValue(faintestPulse);
    m_pulse.setDuration(static_cast<int>(pulseDuration.count()));
    m_pulse.setEasingCurve(easeInOut());
    connect(&m_pulse, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_pulse, &QVariantAnimation::finished, this, [this] {
        const bool wasForward = m_pulse.direction() == QAbstractAnimation::Forward;
        m_pulse.setDirection(wasForward ? QAbstractAnimation::Backward
                                        : QAbstractAnimation::Forward);
        if (wasForward || isAnimated(*this)) {
            m_pulse.start();
        }
    });
    connect(this, &QPushButton::clicked, this, [this] { setState(m_state.clicked()); });
    connect(&settings, &AppSettings::hotKeyBindingChanged, this,
            &HotKeyRecorderView::describeToAssistiveTechnology);
    describeToAssistiveTechnology();
}

QSize HotKeyRecorderView::sizeHint() const {
    return fieldSize;
}

void HotKeyRecorderView::setState(const RecorderState& state) {
    m_state = state;
    if (!state.isRecording()) {
        m_monitor.reset();
        m_suspension.reset();
        m_pulse.stop();
    } else if (!m_suspension) {
        startRecording();
    }
    setDown(state.isRecording());
    describeToAssistiveTechnology();
}

void HotKeyRecorderView::startRecording() {
    m_suspension = m_hotKey.suspend();
    m_monitor =
        m_keyCapture.capture(*window()->windowHandle(), [this](const platform::KeyPress& press) {
            return handlePress(press);
        });
    m_pulse.setDirection(QAbstractAnimation::Forward);
    m_pulse.setCurrentTime(0);
    if (isAnimated(*this)) {
        m_pulse.start();
    }
}

void HotKeyRecorderView::cancelRecording() {
    if (m_state.isRecording()) {
        setState(RecorderState::idle());
    }
}

platform::KeyCapture::Fate HotKeyRecorderView::handlePress(const platform::KeyPress& press) {
    const RecordedKey recorded = record(press);
    const bool isAgain = recorded.binding && !m_settings.setHotKeyBinding(*recorded.binding);
    setState(recorded.state);
    if (isAgain) {
        Q_EMIT recordedAgain();
    }
    return recorded.fate;
}

void HotKeyRecorderView::enterEvent(QEnterEvent* event) {
    ThemedButton::enterEvent(event);
    m_isHovering = true;
    update();
}

void HotKeyRecorderView::leaveEvent(QEvent* event) {
    ThemedButton::leaveEvent(event);
    m_isHovering = false;
    update();
}

void HotKeyRecorderView::hideEvent(QHideEvent* event) {
    showHotKey();
    ThemedButton::hideEvent(event);
}

void HotKeyRecorderView::focusOutEvent(QFocusEvent* event) {
    cancelRecording();
    ThemedButton::focusOutEvent(event);
}

QString HotKeyRecorderView::shownText() const {
    if (m_state.isRecording()) {
        return QStringLiteral("Type a shortcut…");
    }
    const QString* const message = m_state.errorMessage();
    return message == nullptr ? m_settings.hotKeyBinding().displayText() : *message;
}

void HotKeyRecorderView::setRemark(const QString& remark) {
    m_remark = remark;
    describeToAssistiveTechnology();
}

void HotKeyRecorderView::describeToAssistiveTechnology() {
    setAccessibleDescription(QStringList{shownText(), m_remark}.join(u'\n').trimmed());
    update();
}

void HotKeyRecorderView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawField(painter);

    QRect text = rect().adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    if (m_state.isRecording()) {
        drawIndicator(painter);
        text.adjust(static_cast<int>(indicatorSize) + indicatorSpacing, 0, 0, 0);
    }
    painter.setFont(interfaceFont(fontSize));
    const ThemeColor color =
        m_state.isRecording() ? controlColors(theme()).secondary : theme().primaryText;
    painter.setPen(color.toQColor());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shownText());
    drawGlyph(painter);
}

void HotKeyRecorderView::drawField(QPainter& painter) const {
    const ControlColors colors = controlColors(theme());
    ThemeColor fill = withOpacity(theme().primaryText, m_isHovering ? hoverTint : idleTint);
    ThemeColor border = colors.outline;
    if (m_state.isRecording()) {
        fill = withOpacity(theme().accent, recordingTint);
        border = colors.accent;
    } else if (m_state.errorMessage() != nullptr) {
        border = colors.warning;
    }
    painter.fillPath(continuousRoundedRect(rect(), cornerRadius), fill.toQColor());
    if (showsFocus(*this)) {
        drawFocusRing(painter, rect(), cornerRadius,
                      border == colors.outline ? colors.accent : border);
        return;
    }
    painter.setPen(QPen(border.toQColor(), 1));
    painter.drawPath(
        continuousRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius));
}

void HotKeyRecorderView::drawIndicator(QPainter& painter) const {
    const QRectF dot(horizontalPadding, (height() - indicatorSize) / 2, indicatorSize,
                     indicatorSize);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        withOpacity(controlColors(theme()).accent, m_pulse.currentValue().toDouble()).toQColor());
    painter.drawEllipse(dot);
    painter.setBrush(Qt::NoBrush);
}

QString HotKeyRecorderView::glyphName() const {
    if (m_state.errorMessage() != nullptr) {
        return QStringLiteral("exclamationmark.triangle");
    }
    return m_state.isRecording() ? QStringLiteral("xmark") : QStringLiteral("pencil");
}

void HotKeyRecorderView::drawGlyph(QPainter& painter) {
    const ControlColors colors = controlColors(theme());
    const ThemeColor color = m_state.errorMessage() == nullptr ? colors.secondary : colors.warning;
    drawSymbol(painter, m_icons, platform::Image::symbol(glyphName(), {}),
               QRectF(width() - horizontalPadding - glyphSize, (height() - glyphSize) / 2.0,
                      glyphSize, glyphSize),
               color.toQColor());
}

} // namespace quorvantel
