#include "settings/SettingsPane.h"

#include "settings/SettingsText.h"

namespace quorvantel {

SettingsPane::SettingsPane(const QString& title, QWidget* content, const ThemedRoot& theme,
                           QWidget* parent)
    : DetailPane(parent) {
    add(new SettingsText(title, SettingsText::Style::Heading, theme));
    add(content);
}

} // namespace quorvantel
