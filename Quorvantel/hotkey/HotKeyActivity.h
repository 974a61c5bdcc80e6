#pragma once

#include "hotkey/HotKeyBinding.h"
#include "hotkey/HotKeyError.h"

#include <QObject>

#include <optional>

namespace quorvantel {

/// Which hotkey summons the launcher now, and why the one in the settings does not. Whoever
/// registers the hotkey keeps it up to date; the settings window shows it. Main thread only.
class HotKeyActivity : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The hotkey that works; absent when none does.
    const std::optional<HotKeyBinding>& active() const { return m_active; }

    /// Why the hotkey in the settings could not be registered; absent when it works.
    const std::optional<HotKeyError>& error() const { return m_error; }

    void set(const std::optional<HotKeyBinding>& active, const std::optional<HotKeyError>& error);

Q_SIGNALS:
    void changed();

private:
    std::optional<HotKeyBinding> m_active;
    std::optional<HotKeyError> m_error;
};

} // namespace quorvantel
