#include "settings/SettingsPane.h"

#include "settings/SettingsText.h"

#include <QVBoxLayout>

namespace quorvantel {

SettingsPane::SettingsPane(const QString& title, QWidget* content, const ThemedRoot& theme,
                           QWidget* parent)
    : QWidget(parent) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addWidget(new SettingsText(title, SettingsText::Style::Heading, theme));
    layout->addWidget(content);
    layout->addStretch();
}

} // namespace quorvantel
