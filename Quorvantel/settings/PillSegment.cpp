#include "settings/PillSegment.h"

#include "settings/FocusRing.h"
#include "theme/ControlColors.h"
#include "theme/InterfaceFont.h"

#include <QPainter>

namespace quorvantel {

namespace {

constexpr int fontSize = 13;
constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 4;

} // namespace

PillSegment::PillSegment(const QString& label, const ThemedRoot& theme, QWidget* parent)
    : QRadioButton(label, parent), m_theme(theme) {
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
}

QSize PillSegment::sizeHint() const {
    const QFontMetrics metrics(interfaceFont(fontSize, QFont::DemiBold));
    return {metrics.horizontalAdvance(text()) + 2 * horizontalPadding,
            metrics.height() + 2 * verticalPadding};
}

bool PillSegment::hitButton(const QPoint& point) const {
    return rect().contains(point);
}

void PillSegment::paintEvent(QPaintEvent* /*event*/) {
    const ResolvedTheme& theme = m_theme.theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(interfaceFont(fontSize, isChecked() ? QFont::DemiBold : QFont::Normal));
    painter.setPen((isChecked() ? m_theme.textOnAccent() : theme.secondaryText).toQColor());
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (showsFocus(*this)) {
        const ControlColors colors = controlColors(theme);
        drawFocusRing(painter, rect(), cornerRadius, isChecked() ? colors.onAccent : colors.accent);
    }
}

} // namespace quorvantel
