#include "settings/GeneralSettingsPane.h"

#include "settings/FCPToolbarButtonStyle.h"
#include "settings/SettingsText.h"

#include <QVBoxLayout>

namespace quorvantel {

namespace {

constexpr int spacing = 16;

} // namespace

GeneralSettingsPane::GeneralSettingsPane(const SettingsServices& services, QWidget* parent)
    : QWidget(parent) {
    auto* const help = new FCPToolbarButtonStyle(
        QStringLiteral("Quorvantel Help"),
        platform::Image::symbol(QStringLiteral("questionmark.circle"), {}), services.theme,
        services.icons);
    connect(help, &QPushButton::clicked, this, services.showHelp);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(new SettingsText(QStringLiteral("No additional settings yet."),
                                       SettingsText::Style::Body, services.theme));
    layout->addWidget(help);
}

} // namespace quorvantel
