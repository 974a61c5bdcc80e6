#include "settings/SettingsText.h"

#include "settings/InterfaceFont.h"

namespace quorvantel {

namespace {

QFont fontFor(SettingsText::Style style) {
    switch (style) {
    case SettingsText::Style::Heading:
        return interfaceFont(15, QFont::Medium);
    case SettingsText::Style::Body:
        return interfaceFont(13);
    case SettingsText::Style::Hint:
        return interfaceFont(11);
    }
    Q_UNREACHABLE();
}

} // namespace

SettingsText::SettingsText(const QString& text, Style style, const ThemedRoot& theme,
                           QWidget* parent)
    : QLabel(text, parent), m_style(style), m_theme(theme) {
    setTextFormat(Qt::PlainText);
    setFont(fontFor(style));
    setWordWrap(true);
    connect(&theme, &ThemedRoot::themeChanged, this, &SettingsText::applyTheme);
    applyTheme();
}

void SettingsText::applyTheme() {
    const ResolvedTheme& theme = m_theme.theme();
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText,
                    (m_style == Style::Hint ? theme.secondaryText : theme.primaryText).toQColor());
    setPalette(colors);
}

} // namespace quorvantel
