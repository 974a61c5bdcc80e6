#include "settings/PlainButton.h"

#include "drawing/ContinuousCorners.h"
#include "settings/FocusRing.h"
#include "settings/InterfaceFont.h"

#include <QPainter>

namespace quorvantel {

namespace {

constexpr int fontSize = 13;
constexpr int verticalPadding = 3;
constexpr double cornerRadius = 4;
constexpr double pressedOpacity = 0.6;

} // namespace

PlainButton::PlainButton(const QString& label, const ThemedRoot& theme, QWidget* parent)
    : QPushButton(label, parent), m_theme(theme) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAutoDefault(true); // Return presses it as well as Space.
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
}

QSize PlainButton::sizeHint() const {
    const QFontMetrics metrics(interfaceFont(fontSize, QFont::Medium));
    return {metrics.horizontalAdvance(text()), metrics.height() + 2 * verticalPadding};
}

void PlainButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isFocused = showsFocus(*this);
    if (isFocused) {
        painter.fillPath(continuousRoundedRect(rect(), cornerRadius),
                         m_theme.theme().selectionFill.toQColor());
    }
    QFont font = interfaceFont(fontSize, QFont::Medium);
    font.setUnderline(underMouse() || isFocused);
    painter.setFont(font);
    ThemeColor color = m_theme.theme().accent;
    if (isDown()) {
        color.opacity = pressedOpacity;
    }
    painter.setPen(color.toQColor());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
}

} // namespace quorvantel
