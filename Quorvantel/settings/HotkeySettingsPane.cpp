#include "settings/HotkeySettingsPane.h"

#include "hotkey/HotKeyRecorderView.h"
#include "settings/PlainButton.h"

#include <QVBoxLayout>

namespace quorvantel {

namespace {

constexpr int spacing = 10;

} // namespace

HotkeySettingsPane::HotkeySettingsPane(const SettingsServices& services, QWidget* parent)
    : QWidget(parent),
      m_activity(services.hotKeyActivity),
      m_failure(new SettingsText({}, SettingsText::Style::Body, services.theme)) {
    auto* const recorder = new HotKeyRecorderView(services.settings, services.keyCapture,
                                                  services.theme, services.icons);
    auto* const reset =
        new PlainButton(QStringLiteral("Reset to default (⌃⌥⌘Space)"), services.theme);
    connect(reset, &QPushButton::clicked, this, [&settings = services.settings] {
        settings.setHotKeyBinding(HotKeyBinding::defaultBinding());
    });

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(new SettingsText(QStringLiteral("Summon hotkey"), SettingsText::Style::Body,
                                       services.theme));
    layout->addWidget(recorder);
    layout->addWidget(m_failure);
    layout->addWidget(reset);
    layout->addWidget(new SettingsText(
        QStringLiteral("Click the field, then press a combo that includes ⌘ or ⌃ so it won't "
                       "collide with normal typing."),
        SettingsText::Style::Hint, services.theme));
    connect(&m_activity, &HotKeyActivity::changed, this, &HotkeySettingsPane::showActivity);
    showActivity();
}

void HotkeySettingsPane::showActivity() {
    const auto& error = m_activity.error();
    m_failure->setText(error ? error->description() : QString());
    m_failure->setVisible(error.has_value());
}

} // namespace quorvantel
