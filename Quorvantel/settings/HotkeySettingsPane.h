#pragma once

#include "settings/CopyableText.h"
#include "settings/HotKeyRecorderView.h"
#include "settings/SettingsServices.h"
#include "settings/SettingsText.h"

#include <QWidget>

namespace quorvantel {

/// The content of the Hotkey section: the recorder, the way back to the default, and what became of
/// the hotkey where that needs saying: why it does not work and which one does, what really
/// triggers it, or what the user has to do for it. Choosing the same hotkey once more while it does
/// not work tries again.
class HotkeySettingsPane : public QWidget {
    Q_OBJECT

public:
    explicit HotkeySettingsPane(const SettingsServices& services, QWidget* parent = nullptr);

private:
    void resetToDefault();
    void retry();
    void showState();

    const HotKeyService& m_hotKey;
    AppSettings& m_settings;
    std::function<void()> m_retryHotKey;
    HotKeyRecorderView* m_recorder;
    SettingsText* m_failure;
    SettingsText* m_note;
    CopyableText* m_configuration;
};

} // namespace quorvantel
