#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <variant>

namespace quorvantel::platform {

/// The bits of a hotkey's modifier mask: the Carbon encoding, which the settings store as well.
namespace HotKeyModifier {
inline constexpr std::uint32_t command = 0x0100;
inline constexpr std::uint32_t shift = 0x0200;
inline constexpr std::uint32_t option = 0x0800;
inline constexpr std::uint32_t control = 0x1000;
} // namespace HotKeyModifier

/// Tells the hotkeys of one application apart.
struct HotKeyIdentity {
    std::uint32_t signature; ///< A four-character code.
    std::uint32_t id;

    friend bool operator==(const HotKeyIdentity&, const HotKeyIdentity&) = default;
};

/// A platform status. On X11 it is the error code of the core protocol.
using HotKeyStatus = std::int32_t;
inline constexpr HotKeyStatus hotKeySuccess = 0;

/// System-wide hotkeys, delivered whichever application is in front.
///
/// On macOS this is the Carbon Event Manager; on X11, passive key grabs on the root window. Key
/// codes are virtual key codes, which name physical positions (US layout), and modifiers are a mask
/// of `HotKeyModifier` bits. Caps Lock, Num Lock and Scroll Lock make no difference to a press.
/// Main thread only.
class GlobalHotKeys {
public:
    /// Held for as long as something is registered; destroying it undoes the registration.
    class Registration {
    public:
        Registration() = default;
        Registration(const Registration&) = delete;
        Registration& operator=(const Registration&) = delete;
        virtual ~Registration() = default;
    };

    using PressHandler = std::function<void(HotKeyIdentity)>;

    /// Receives why a registered combination no longer works, or success when it works again.
    using StatusHandler = std::function<void(HotKeyStatus)>;

    using RegistrationResult = std::variant<std::unique_ptr<Registration>, HotKeyStatus>;

    virtual ~GlobalHotKeys() = default;

    /// Has every press of a registered hotkey reported to `handler`, once for a press however long
    /// the key is held. The handler runs on the main thread, inside the platform's event dispatch.
    virtual std::unique_ptr<Registration> installHandler(PressHandler handler) = 0;

    /// Registers a combination. Fails with the platform's status, for instance when another
    /// application holds the combination or the keyboard has no such key.
    ///
    /// The system may take a granted combination away, as by another keyboard, and give it back. Of
    /// each such change `onStatusChange`, if any, is told from the event loop for as long as the
    /// registration lives, which it may end.
    virtual RegistrationResult registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                              HotKeyIdentity identity,
                                              StatusHandler onStatusChange) = 0;
};

} // namespace quorvantel::platform
