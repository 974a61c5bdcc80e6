#pragma once

#include "platform/HotKeyState.h"

#include <QString>

#include <utility>
#include <variant>

namespace quorvantel {

/// Why a hotkey could not be registered.
class HotKeyError {
public:
    /// The system refused the combination; another application may hold it.
    struct RegistrationFailed {
        platform::HotKeyStatus status;
        /// Why, as a sentence for the user; empty when the system gave its status only.
        QString reason;

        friend bool operator==(const RegistrationFailed&, const RegistrationFailed&) = default;
    };

    /// The combination has neither Command nor Control.
    struct InvalidModifiers {
        friend bool operator==(const InvalidModifiers&, const InvalidModifiers&) = default;
    };

    static HotKeyError registrationFailed(const platform::HotKeyUnavailable& refusal) {
        return HotKeyError(RegistrationFailed{refusal.status, refusal.reason});
    }
    static HotKeyError invalidModifiers() { return HotKeyError(InvalidModifiers{}); }

    /// The error in words, for the log.
    QString description() const;

    /// The error in words for the user: the system's reason, where there is one.
    QString explanation() const;

    friend bool operator==(const HotKeyError&, const HotKeyError&) = default;

private:
    using Case = std::variant<RegistrationFailed, InvalidModifiers>;

    explicit HotKeyError(Case errorCase) : m_case(std::move(errorCase)) {}

    Case m_case;
};

} // namespace quorvantel
