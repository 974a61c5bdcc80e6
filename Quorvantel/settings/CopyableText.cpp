#include "settings/CopyableText.h"

#include "settings/FocusRing.h"
#include "settings/PlainButton.h"
#include "shapes/ContinuousCorners.h"
#include "theme/ControlColors.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>
#include <QVBoxLayout>

namespace quorvantel {

namespace {

constexpr int fontSize = 12;
constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 8;
constexpr int spacing = 6;
constexpr double cornerRadius = 7;
constexpr double tint = 0.06;

QString copyLabel() {
    return QStringLiteral("Copy");
}

} // namespace

CopyableText::CopyableText(const ThemedRoot& theme, QWidget* parent)
    : QWidget(parent),
      m_theme(theme),
      m_text(new QLabel),
      m_copy(new PlainButton(copyLabel(), theme)) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(fontSize);
    m_text->setFont(font);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding,
                               verticalPadding);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(m_text);
    layout->addWidget(m_copy);
    connect(m_copy, &QPushButton::clicked, this, &CopyableText::copy);
    connect(&theme, &ThemedRoot::themeChanged, this, &CopyableText::applyTheme);
    applyTheme();
}

void CopyableText::setText(const QString& text) {
    m_text->setText(text);
    m_copy->setText(copyLabel());
}

void CopyableText::copy() {
    QGuiApplication::clipboard()->setText(text());
    m_copy->setText(QStringLiteral("Copied"));
}

void CopyableText::hideEvent(QHideEvent* event) {
    m_copy->setText(copyLabel());
    QWidget::hideEvent(event);
}

void CopyableText::applyTheme() {
    QPalette colors = m_text->palette();
    colors.setColor(QPalette::WindowText, m_theme.theme().primaryText.toQColor());
    m_text->setPalette(colors);
    update();
}

void CopyableText::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect field = m_text->geometry();
    ThemeColor fill = m_theme.theme().primaryText;
    fill.opacity = tint;
    painter.fillPath(continuousRoundedRect(field, cornerRadius), fill.toQColor());
    const ControlColors colors = controlColors(m_theme.theme());
    if (showsFocus(*m_text)) {
        drawFocusRing(painter, field, cornerRadius, colors.accent);
        return;
    }
    painter.setPen(QPen(colors.outline.toQColor(), 1));
    painter.drawPath(
        continuousRoundedRect(QRectF(field).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius));
}

} // namespace quorvantel
