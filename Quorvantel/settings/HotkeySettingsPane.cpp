#include "settings/HotkeySettingsPane.h"

#include "settings/PlainButton.h"

#include <QVBoxLayout>

namespace quorvantel {

namespace {

constexpr int spacing = 10;

/// Why the hotkey in the settings does not work, and which one does; empty while it does.
QString failureText(const SummonHotKey& state) {
    if (!state.failure) {
        return {};
    }
    const QString remedy = state.active
                               ? state.pressText() + QStringLiteral(" summons Quorvantel instead.")
                               : QStringLiteral("No hotkey summons Quorvantel now.");
    return state.failure->explanation() + u'\n' + remedy;
}

/// What else there is to know of the hotkey; empty when it is just what the recorder shows.
QString noteText(const SummonHotKey& state) {
    if (state.isPending) {
        return QStringLiteral("Waiting for your desktop to answer…");
    }
    if (state.leftToUser) {
        return state.leftToUser->instruction;
    }
    if (!state.trigger.isEmpty() && !state.failure) {
        return QStringLiteral("Press %1 to summon Quorvantel.").arg(state.trigger);
    }
    return {};
}

void fill(SettingsText& label, const QString& text) {
    label.setText(text);
    label.setAccessibleName(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

HotkeySettingsPane::HotkeySettingsPane(const SettingsServices& services, QWidget* parent)
    : QWidget(parent),
      m_hotKey(services.hotKey),
      m_settings(services.settings),
      m_retryHotKey(services.retryHotKey),
      m_recorder(new HotKeyRecorderView(services.settings, services.hotKey, services.keyCapture,
                                        services.theme, services.icons)),
      m_failure(new SettingsText({}, SettingsText::Style::Warning, services.theme)),
      m_note(new SettingsText({}, SettingsText::Style::Body, services.theme)),
      m_configuration(new CopyableText(services.theme)) {
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
    layout->addWidget(m_note);
    layout->addWidget(m_configuration);
    layout->addWidget(reset);
    layout->addWidget(new SettingsText(
        QStringLiteral("Click the field, then press a combo that includes ⌘ or ⌃ so it won't "
                       "collide with normal typing."),
        SettingsText::Style::Hint, services.theme));
    connect(&m_hotKey, &HotKeyService::changed, this, &HotkeySettingsPane::showState);
    showState();
}

void HotkeySettingsPane::resetToDefault() {
    m_recorder->showHotKey();
    if (!m_settings.setHotKeyBinding(HotKeyBinding::defaultBinding())) {
        retry();
    }
}

void HotkeySettingsPane::retry() {
    // What kept the combination from being registered may be gone by now.
    if (m_hotKey.state().failure) {
        m_retryHotKey();
    }
}

void HotkeySettingsPane::showState() {
    const SummonHotKey& state = m_hotKey.state();
    const QString failure = failureText(state);
    const QString note = noteText(state);
    fill(*m_failure, failure);
    fill(*m_note, note);
    m_configuration->setText(state.leftToUser ? state.leftToUser->configuration : QString());
    m_configuration->setVisible(!m_configuration->text().isEmpty());
    m_recorder->setRemark(QStringList{failure, note}.join(u'\n').trimmed());
}

} // namespace quorvantel
