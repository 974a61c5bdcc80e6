#pragma once

#include "hotkey/HotKeyBinding.h"
#include "hotkey/HotKeyError.h"

#include <QObject>

#include <optional>

namespace quorvantel {

/// Which hotkey summons the launcher now, and why the one in the settings does not, be it refused
/// or lost later. Whoever registers the hotkey keeps it up to date; the settings window shows it.
/// Main thread only.
class HotKeyActivity : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The hotkey that works; absent when none does.
    const std::optional<HotKeyBinding>& active() const { return m_active; }

    /// Why the hotkey in the settings does not work; absent when it does.
    const std::optional<HotKeyError>& failure() const { return m_failure; }

    void set(const std::optional<HotKeyBinding>& active, const std::optional<HotKeyError>& failure);

Q_SIGNALS:
    void changed();

private:
    std::optional<HotKeyBinding> m_active;
    std::optional<HotKeyError> m_failure;
};

} // namespace quorvantel
