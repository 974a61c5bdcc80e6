#include "hotkey/HotKeyRecorderView.h"

#include "drawing/ContinuousCorners.h"
#include "settings/EaseInOut.h"
#include "settings/InterfaceFont.h"

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

HotKeyRecorderView::HotKeyRecorderView(AppSettings& settings, platform::KeyCapture& keyCapture,
                                       const ThemedRoot& theme, IconCache& icons, QWidget* parent)
    : QPushButton(parent),
      m_settings(settings),
      m_keyCapture(keyCapture),
      m_theme(theme),
      m_icons(icons) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(true); // Return presses it as well as Space.
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
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
        m_pulse.start();
    });
    connect(this, &QPushButton::clicked, this, [this] { setState(m_state.clicked()); });
    connect(&settings, &AppSettings::hotKeyBindingChanged, this,
            &HotKeyRecorderView::describeToAssistiveTechnology);
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
    describeToAssistiveTechnology();
}

QSize HotKeyRecorderView::sizeHint() const {
    return fieldSize;
}

void HotKeyRecorderView::setState(const RecorderState& state) {
    m_state = state;
    if (!state.isRecording()) {
        m_monitor.reset();
        m_pulse.stop();
    } else if (!m_monitor) {
        m_monitor = m_keyCapture.capture(
            *window()->windowHandle(),
            [this](const platform::KeyPress& press) { return handlePress(press); });
        m_pulse.setDirection(QAbstractAnimation::Forward);
        m_pulse.start();
    }
    setDown(state.isRecording());
    describeToAssistiveTechnology();
}

void HotKeyRecorderView::cancelRecording() {
    if (m_state.isRecording()) {
        setState(RecorderState::idle());
    }
}

platform::KeyCapture::Fate HotKeyRecorderView::handlePress(const platform::KeyPress& press) {
    const RecordedKey recorded = record(press);
    if (recorded.binding) {
        m_settings.setHotKeyBinding(*recorded.binding);
    }
    setState(recorded.state);
    return recorded.fate;
}

void HotKeyRecorderView::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    m_isHovering = true;
    update();
}

void HotKeyRecorderView::leaveEvent(QEvent* event) {
    QPushButton::leaveEvent(event);
    m_isHovering = false;
    update();
}

void HotKeyRecorderView::hideEvent(QHideEvent* event) {
    cancelRecording();
    QPushButton::hideEvent(event);
}

void HotKeyRecorderView::focusOutEvent(QFocusEvent* event) {
    cancelRecording();
    QPushButton::focusOutEvent(event);
}

QString HotKeyRecorderView::shownText() const {
    if (m_state.isRecording()) {
        return QStringLiteral("Type a shortcut…");
    }
    const QString* const message = m_state.errorMessage();
    return message == nullptr ? m_settings.hotKeyBinding().displayText() : *message;
}

void HotKeyRecorderView::describeToAssistiveTechnology() {
    setAccessibleDescription(shownText());
    update();
}

void HotKeyRecorderView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawField(painter);

    const ResolvedTheme& theme = m_theme.theme();
    QRect text = rect().adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    if (m_state.isRecording()) {
        drawIndicator(painter);
        text.adjust(static_cast<int>(indicatorSize) + indicatorSpacing, 0, 0, 0);
    }
    painter.setFont(interfaceFont(fontSize));
    painter.setPen((m_state.isRecording() ? theme.secondaryText : theme.primaryText).toQColor());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shownText());
    if (m_state.errorMessage() == nullptr) {
        drawGlyph(painter);
    }
}

void HotKeyRecorderView::drawField(QPainter& painter) const {
    const ResolvedTheme& theme = m_theme.theme();
    const bool isActive = m_state.isRecording() || m_state.errorMessage() != nullptr;
    const ThemeColor fill =
        isActive ? withOpacity(theme.accent, recordingTint)
                 : withOpacity(theme.primaryText, m_isHovering ? hoverTint : idleTint);
    painter.fillPath(continuousRoundedRect(rect(), cornerRadius), fill.toQColor());

    const bool showsFocus = hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
    const double width = showsFocus ? 2 : 1;
    painter.setPen(
        QPen((isActive || showsFocus ? theme.accent : theme.separator).toQColor(), width));
    painter.drawPath(continuousRoundedRect(
        QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), cornerRadius));
}

void HotKeyRecorderView::drawIndicator(QPainter& painter) const {
    const QRectF dot(horizontalPadding, (height() - indicatorSize) / 2, indicatorSize,
                     indicatorSize);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        withOpacity(m_theme.theme().accent, m_pulse.currentValue().toDouble()).toQColor());
    painter.drawEllipse(dot);
    painter.setBrush(Qt::NoBrush);
}

void HotKeyRecorderView::drawGlyph(QPainter& painter) {
    const QString name = m_state.isRecording() ? QStringLiteral("xmark") : QStringLiteral("pencil");
    const QPixmap pixmap =
        m_icons.pixmapNow(platform::Image::symbol(name, {}), glyphSize, devicePixelRatioF());
    if (!pixmap.isNull()) {
        const QPointF corner(width() - horizontalPadding - glyphSize, (height() - glyphSize) / 2.0);
        painter.drawPixmap(corner, tinted(pixmap, m_theme.theme().secondaryText.toQColor()));
    }
}

} // namespace quorvantel
