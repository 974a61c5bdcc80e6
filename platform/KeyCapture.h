#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

class QWindow;

namespace quorvantel::platform {

/// One press of a key that is no modifier.
struct KeyPress {
    /// The virtual key code, which names a physical position whatever the layout; absent for a key
    /// that has none, such as Pause.
    std::optional<std::uint32_t> keyCode;
    /// The modifiers that are held, a mask of `HotKeyModifier` bits; locks leave no trace.
    std::uint32_t modifiers;

    friend bool operator==(const KeyPress&, const KeyPress&) = default;
};

/// Sees the key presses that reach the launcher's own window before the window does.
///
/// As far as the system lets it, shortcuts of the desktop and hotkeys of other programs have no
/// effect meanwhile but come as plain key presses. On macOS this is a local event monitor, which
/// promises no more than the window gets; on X11 an active keyboard grab, which gets everything; on
/// Wayland the inhibition of the compositor's shortcuts, which the compositor or the user may deny.
/// The launcher's own hotkey is left to whoever records: see `GlobalHotKeys::suspend`. Main thread
/// only.
class KeyCapture {
public:
    /// The capture lasts as long as its token.
    class Token {
    public:
        Token() = default;
        Token(const Token&) = delete;
        Token& operator=(const Token&) = delete;
        virtual ~Token() = default;
    };

    enum class Fate {
        Swallowed, ///< Nobody else gets the press.
        PassedOn,  ///< It goes on to the window.
    };

    /// Receives a press and says what becomes of it. May end the capture.
    using Handler = std::function<Fate(const KeyPress&)>;

    virtual ~KeyCapture() = default;

    /// Captures what is typed into a shown window. A key that is down already counts once it has
    /// been released; modifier keys and Caps Lock are swallowed unreported. One capture at a time:
    /// the next one ends the reports to the one before. No token when the system offers no capture.
    virtual std::unique_ptr<Token> capture(QWindow& window, Handler handler) = 0;
};

} // namespace quorvantel::platform
