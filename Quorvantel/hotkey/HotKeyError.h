#pragma once

#include "platform/GlobalHotKeys.h"

#include <QString>

#include <variant>

namespace quorvantel {

/// Why a hotkey could not be registered.
class HotKeyError {
public:
    /// The system refused the combination; another application may hold it.
    struct RegistrationFailed {
        platform::HotKeyStatus status;

        friend bool operator==(const RegistrationFailed&, const RegistrationFailed&) = default;
    };

    /// The combination has neither Command nor Control.
    struct InvalidModifiers {
        friend bool operator==(const InvalidModifiers&, const InvalidModifiers&) = default;
    };

    static HotKeyError registrationFailed(platform::HotKeyStatus status) {
        return HotKeyError(RegistrationFailed{status});
    }
    static HotKeyError invalidModifiers() { return HotKeyError(InvalidModifiers{}); }

    /// The error in words, for the log and for the user.
    QString description() const;

    friend bool operator==(const HotKeyError&, const HotKeyError&) = default;

private:
    using Case = std::variant<RegistrationFailed, InvalidModifiers>;

    explicit HotKeyError(Case errorCase) : m_case(errorCase) {}

    Case m_case;
};

} // namespace quorvantel
