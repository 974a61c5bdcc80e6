#pragma once

#include "hotkey/HotKeyBinding.h"
#include "platform/UserDefaults.h"

#include <QObject>

#include <functional>

namespace quorvantel {

/// The settings of the application shell: the summon hotkey, kept in the user's defaults.
///
/// The defaults keys are "hotKeyCode" and "hotKeyModifiers", both read as whole numbers. Only both
/// together make a binding; a value outside the signed 32-bit range ends the program, since nothing
/// that this program wrote can be one. Main thread only.
class AppSettings : public QObject {
    Q_OBJECT

public:
    /// The instance that the whole application shares, made on first use over the defaults that are
    /// given then, which must outlive every use of it.
    static AppSettings& shared(platform::UserDefaults& defaults);

    /// Loads the binding; writes nothing. `defaults` must outlive the settings.
    explicit AppSettings(platform::UserDefaults& defaults, QObject* parent = nullptr);

    const HotKeyBinding& hotKeyBinding() const { return m_hotKeyBinding; }

    /// Stores another binding, tells the observers and calls `onHotKeyChange`. Does nothing for the
    /// binding that is set already; returns whether it was another.
    bool setHotKeyBinding(const HotKeyBinding& binding);

    /// Called after every real change of the binding, once it is stored: a binding that then cannot
    /// be registered stays stored and is tried again at the next start.
    std::function<void(const HotKeyBinding&)> onHotKeyChange;

Q_SIGNALS:
    void hotKeyBindingChanged();

private:
    platform::UserDefaults& m_defaults;
    HotKeyBinding m_hotKeyBinding;
};

} // namespace quorvantel
