#pragma once

#include "settings/HotKeyRecorderView.h"
#include "settings/SettingsServices.h"
#include "settings/SettingsText.h"

#include <QWidget>

namespace quorvantel {

/// The content of the Hotkey section: the recorder, the way back to the default, and while the
/// hotkey does not work, why, and which one does. Choosing the same hotkey once more then tries
/// again.
class HotkeySettingsPane : public QWidget {
    Q_OBJECT

public:
    explicit HotkeySettingsPane(const SettingsServices& services, QWidget* parent = nullptr);

private:
    void resetToDefault();
    void retry();
    void showActivity();

    const HotKeyActivity& m_activity;
    AppSettings& m_settings;
    std::function<void()> m_retryHotKey;
    HotKeyRecorderView* m_recorder;
    SettingsText* m_failure;
};

} // namespace quorvantel
