#pragma once

#include "settings/SettingsServices.h"
#include "settings/SettingsText.h"

#include <QWidget>

namespace quorvantel {

/// The content of the Hotkey section: the recorder, the way back to the default, and why the
/// hotkey does not work while it does not.
class HotkeySettingsPane : public QWidget {
    Q_OBJECT

public:
    explicit HotkeySettingsPane(const SettingsServices& services, QWidget* parent = nullptr);

private:
    void showActivity();

    const HotKeyActivity& m_activity;
    SettingsText* m_failure;
};

} // namespace quorvantel
