#include "settings/SettingsText.h"

#include "theme/ControlColors.h"
#include "theme/InterfaceFont.h"

namespace quorvantel {

namespace {

QFont fontFor(SettingsText::Style style) {
    switch (style) {
    case SettingsText::Style::Heading:
        return interfaceFont(15, QFont::Medium);
    case SettingsText::Style::Body:
    case SettingsText::Style::Warning:
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

ThemeColor SettingsText::color() const {
    switch (m_style) {
    case Style::Heading:
    case Style::Body:
        return m_theme.theme().primaryText;
    case Style::Hint:
        return m_theme.theme().secondaryText;
    case Style::Warning:
        return controlColors(m_theme.theme()).warning;
    }
    Q_UNREACHABLE();
}

void SettingsText::applyTheme() {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, color().toQColor());
    setPalette(colors);
}

} // namespace quorvantel
