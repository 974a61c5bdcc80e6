#include "panel/SettingsButton.h"

#include "drawing/ContinuousCorners.h"

#include <QPainter>

namespace quorvantel {

namespace {

constexpr int highlightRadius = 6;

QString cssColor(const ThemeColor& color) {
    const QColor rgb = color.toQColor();
    return QStringLiteral("rgba(%1,%2,%3,%4)")
        .arg(rgb.red())
        .arg(rgb.green())
        .arg(rgb.blue())
        .arg(rgb.alpha());
}

} // namespace

SettingsButton::SettingsButton(const ThemedRoot& theme, IconCache& icons, QWidget* parent)
    : QToolButton(parent), m_theme(theme), m_icons(icons) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    setToolTip(QStringLiteral("Settings (⌘,)"));
    setAccessibleName(QStringLiteral("Settings"));
    connect(&theme, &ThemedRoot::themeChanged, this, &SettingsButton::applyTheme);
    applyTheme();
}

void SettingsButton::applyTheme() {
    const ResolvedTheme& theme = m_theme.theme();
    // A tool tip takes only a style sheet from its widget, neither palette nor style.
    setStyleSheet(QStringLiteral("QToolTip { padding: 3px 6px; color: %1; background-color: %2;"
                                 " border: 1px solid %3; }")
                      .arg(cssColor(theme.primaryText), cssColor(theme.elevatedBackground),
                           cssColor(theme.separator)));
    update();
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
