#pragma once

#include <QString>

#include <cstdint>
#include <variant>

namespace quorvantel::platform {

/// A platform status. On X11 it is the error code of the core protocol; a platform whose answers
/// carry no number makes up its own.
using HotKeyStatus = std::int32_t;

/// The system has yet to answer, be it that it asks the user, or that the service in question has
/// not come up.
struct HotKeyPending {
    friend bool operator==(const HotKeyPending&, const HotKeyPending&) = default;
};

/// The combination works.
struct HotKeyRegistered {
    /// What really triggers the hotkey, in the system's own words, such as "Meta+Space", since the
    /// user may have given it another combination there. Empty when it is the one asked for.
    QString trigger;

    friend bool operator==(const HotKeyRegistered&, const HotKeyRegistered&) = default;
};

/// The combination does not work: the system refused it, or took it away later.
struct HotKeyUnavailable {
    HotKeyStatus status;
    /// Why, as a sentence for the user; empty when the status is all that is known.
    QString reason;
    /// Whether the user switched it off in the system's own settings, and may switch it on again.
    bool isUsersWish = false;

    friend bool operator==(const HotKeyUnavailable&, const HotKeyUnavailable&) = default;
};

/// The system lets nobody but the user bind keys. What they bind does not come as a press but as an
/// `ApplicationRequest`, and whether they have done so cannot be known.
struct HotKeyLeftToUser {
    /// Tells the user what to do with `configuration`, as in "Only you can bind a key in this
    /// desktop. Put this line into ~/.config/example:".
    QString instruction;
    /// Ready to be copied: the lines that bind the combination asked for.
    QString configuration;

    friend bool operator==(const HotKeyLeftToUser&, const HotKeyLeftToUser&) = default;
};

/// How a registered hotkey stands.
using HotKeyState =
    std::variant<HotKeyPending, HotKeyRegistered, HotKeyUnavailable, HotKeyLeftToUser>;

} // namespace quorvantel::platform
