#pragma once

#include "hotkey/HotKeyBinding.h"
#include "hotkey/HotKeyError.h"
#include "platform/HotKeyState.h"

#include <QString>

#include <optional>

namespace quorvantel {

/// Which hotkey summons the launcher now, and why the one that was asked for does not, be it
/// refused or lost later.
struct SummonHotKey {
    /// The hotkey that works; absent when none does or none is known to.
    std::optional<HotKeyBinding> active;

    /// What really triggers it, in the system's own words; empty when it is the combination of
    /// `active`.
    QString trigger;

    /// Why the hotkey that was asked for does not work; absent when it does.
    std::optional<HotKeyError> failure;

    /// What the user is to do where nobody else can bind a key.
    std::optional<platform::HotKeyLeftToUser> leftToUser;

    /// The system has yet to answer.
    bool isPending = false;

    /// What to press, in the words of the system or else of menus; empty when nothing is known to
    /// work.
    QString pressText() const {
        return trigger.isEmpty() && active ? active->displayText() : trigger;
    }

    friend bool operator==(const SummonHotKey&, const SummonHotKey&) = default;
};

} // namespace quorvantel
