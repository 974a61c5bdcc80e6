#include "panel/SettingsButton.h"

#include "shapes/ContinuousCorners.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace quorvantel {

namespace {

constexpr int highlightRadius = 6;

} // namespace

SettingsButton::SettingsButton(const ThemedRoot& theme, IconCache& icons, QWidget* parent)
    : QToolButton(parent), m_theme(theme), m_icons(icons) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    setToolTip(QStringLiteral("Settings (⌘,)"));
    setAccessibleName(QStringLiteral("Settings"));
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
}

bool SettingsButton::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QToolButton::event(event);
    }
    // Without the button as its owner: Qt accepts only a top-level window, which the panel's
    // content is not.
    QToolTip::showText(static_cast<const QHelpEvent&>(*event).globalPos(), toolTip());
    return true;
}

void SettingsButton::paintEvent(QPaintEvent* /*event*/) {
    const ResolvedTheme& theme = m_theme.theme();
    const bool isHighlighted = isDown() || underMouse();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isHighlighted) {
        const ThemeColor fill = isDown() ? theme.selectionFill : theme.hoverFill;
        fillContinuousRoundedRect(painter, rect(), highlightRadius, fill.toQColor());
    }
    QRect frame(0, 0, symbolSize, symbolSize);
    frame.moveCenter(rect().center());
    drawSymbol(painter, m_icons, platform::Image::symbol(QStringLiteral("gearshape"), {}), frame,
               (isHighlighted ? theme.primaryText : theme.secondaryText).toQColor());
}

} // namespace quorvantel
