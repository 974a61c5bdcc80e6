#include "settings/HotkeySettingsPane.h"

#include "settings/PlainButton.h"

#include <QVBoxLayout>

namespace quorvantel {

namespace {

constexpr int spacing = 10;

/// Why the hotkey in the settings does not work, and which one does; empty while it does.
QString explanation(const HotKeyActivity& activity) {
    if (!activity.failure()) {
        return {};
    }
    const QString remedy = activity.active() ? activity.active()->displayText() +
                                                   QStringLiteral(" summons Quorvantel instead.")
                                             : QStringLiteral("No hotkey summons Quorvantel now.");
    return activity.failure()->description() + u'\n' + remedy;
}

} // namespace

HotkeySettingsPane::HotkeySettingsPane(const SettingsServices& services, QWidget* parent)
    : QWidget(parent),
      m_activity(services.hotKeyActivity),
      m_settings(services.settings),
      m_retryHotKey(services.retryHotKey),
      m_recorder(new HotKeyRecorderView(services.settings, services.keyCapture, services.theme,
                                        services.icons)),
      m_failure(new SettingsText({}, SettingsText::Style::Warning, services.theme)) {
    auto* const reset =
        new PlainButton(QStringLiteral("Reset to default (⌃⌥⌘Space)"), services.theme);
    connect(reset, &QPushButton::clicked, this, &HotkeySettingsPane::resetToDefault);
    connect(m_recorder, &HotKeyRecorderView::recordedAgain, this, &HotkeySettingsPane::retry);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(new SettingsText(QStringLiteral("Summon hotkey"), SettingsText::Style::Body,
                                       services.theme));
    layout->addWidget(m_recorder);
    layout->addWidget(m_failure);
    layout->addWidget(reset);
    layout->addWidget(new SettingsText(
        QStringLiteral("Click the field, then press a combo that includes ⌘ or ⌃ so it won't "
                       "collide with normal typing."),
        SettingsText::Style::Hint, services.theme));
    connect(&m_activity, &HotKeyActivity::changed, this, &HotkeySettingsPane::showActivity);
    showActivity();
}

void HotkeySettingsPane::resetToDefault() {
    m_recorder->showHotKey();
    if (!m_settings.setHotKeyBinding(HotKeyBinding::defaultBinding())) {
        retry();
    }
}

void HotkeySettingsPane::retry() {
    // What kept the combination from being registered may be gone by now.
    if (m_activity.failure()) {
        m_retryHotKey();
    }
}

void HotkeySettingsPane::showActivity() {
    const QString text = explanation(m_activity);
    m_failure->setText(text);
    m_failure->setAccessibleName(text);
    m_failure->setVisible(!text.isEmpty());
    m_recorder->setRemark(text);
}

} // namespace quorvantel
