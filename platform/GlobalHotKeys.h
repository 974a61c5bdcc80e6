#pragma once

#include "platform/HotKeyState.h"

#include <cstdint>
#include <functional>
#include <memory>

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

/// System-wide hotkeys, delivered whichever application is in front.
///
/// On macOS this is the Carbon Event Manager; on X11, passive key grabs on the root window; on
/// Wayland, whatever the session offers. Some answer at once, others later, and a user may change
/// in the system's own settings what was granted. Key codes are virtual key codes, which name
/// physical positions (US layout), and modifiers are a mask of `HotKeyModifier` bits. Caps Lock,
/// Num Lock and Scroll Lock make no difference to a press. Main thread only.
class GlobalHotKeys {
public:
    /// Held for as long as what it stands for is to last.
    class Token {
    public:
        Token() = default;
        Token(const Token&) = delete;
        Token& operator=(const Token&) = delete;
        virtual ~Token() = default;
    };

    /// A combination that the system was asked for; destroying it gives the combination back.
    class Registration : public Token {
    public:
        virtual const HotKeyState& state() const = 0;
    };

    using PressHandler = std::function<void(HotKeyIdentity)>;
    using ChangeHandler = std::function<void()>;

    virtual ~GlobalHotKeys() = default;

    /// Has every press of a registered hotkey reported to `handler`, once for a press however long
    /// the key is held. The handler runs on the main thread, inside the platform's event dispatch.
    virtual std::unique_ptr<Token> installHandler(PressHandler handler) = 0;

    /// Asks the system for a combination. Never null; where the answer is known at once, as that
    /// another application holds the combination or that the keyboard has no such key, the
    /// registration has it already.
    ///
    /// Every later change of its state is told to `onChange`, from the event loop and for as long
    /// as the registration lives, which `onChange` may end. A registration that does not work, at
    /// first or any more, goes on to follow what the system does, and may come to work.
    virtual std::unique_ptr<Registration> registerHotKey(std::uint32_t keyCode,
                                                         std::uint32_t modifiers,
                                                         HotKeyIdentity identity,
                                                         ChangeHandler onChange) = 0;

    /// Has no press of a hotkey reported while the token lives, of those that are registered
    /// meanwhile neither. As far as the system lets it, the presses go to the window in front
    /// instead. The registrations, and what they say of themselves, stay.
    virtual std::unique_ptr<Token> suspend() = 0;
};

} // namespace quorvantel::platform
