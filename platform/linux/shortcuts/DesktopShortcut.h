#pragma once

#include "platform/HotKeyState.h"
#include "platform/linux/shortcuts/Accelerator.h"

#include <functional>
#include <variant>

namespace quorvantel::platform {

/// The desktop has no such service, or one that binds nothing.
struct ShortcutNotOffered {
    friend bool operator==(const ShortcutNotOffered&, const ShortcutNotOffered&) = default;
};

/// What a service of the desktop's answers when it is asked for a shortcut.
using ShortcutAnswer = std::variant<ShortcutNotOffered, HotKeyState>;

/// The launcher's shortcut with one of the desktop's services for shortcuts, as long as it lives.
///
/// Asking begins with the object and holds nobody up: until the first answer arrives, by
/// `onAnswer`, the shortcut is pending. Both functions are called from the event loop and may end
/// the object.
class DesktopShortcut {
public:
    struct Handlers {
        /// Told every answer, which may be the same as before.
        std::function<void(const ShortcutAnswer&)> onAnswer;
        /// Told every press that comes as such.
        std::function<void()> onPress;
    };

    DesktopShortcut() = default;
    DesktopShortcut(const DesktopShortcut&) = delete;
    DesktopShortcut& operator=(const DesktopShortcut&) = delete;

    /// Gives the shortcut back, unless it is what the user chose in the desktop's own settings,
    /// which would be forgotten.
    virtual ~DesktopShortcut() = default;

    /// Lets the keys pass to whoever is in front, or takes them again; as far as the desktop lets
    /// it, and otherwise does nothing.
    virtual void setSuspended(bool isSuspended) = 0;
};

/// The statuses of refusals, which carry no number of their own on the bus.
namespace ShortcutStatus {
inline constexpr HotKeyStatus noSuchKey = 2; ///< As X11's BadValue.
inline constexpr HotKeyStatus taken = 10;    ///< As X11's BadAccess.
inline constexpr HotKeyStatus switchedOff = 100;
inline constexpr HotKeyStatus denied = 101;
inline constexpr HotKeyStatus failed = 102;
} // namespace ShortcutStatus

} // namespace quorvantel::platform
