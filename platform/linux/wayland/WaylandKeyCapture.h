#pragma once

#include "platform/KeyCapture.h"
#include "platform/linux/wayland/WaylandKeyboard.h"

#include <QObject>

#include <optional>
#include <utility>

class QKeyEvent;

namespace quorvantel::platform {

/// Captures the keys that reach a window of the launcher's own, with the compositor's shortcuts
/// inhibited meanwhile (`keyboard-shortcuts-inhibit-unstable-v1`) where it knows how.
class WaylandKeyCapture : public QObject, public KeyCapture {
public:
    /// Whether the compositor is asked to leave its shortcuts alone. GNOME puts that question to
    /// the user, in a dialog that takes the keyboard from the recorder, and what it has shortcuts
    /// for could not become the hotkey anyway.
    enum class Shortcuts { Inhibited, Left };

    /// The references must outlive the object.
    WaylandKeyCapture(const WaylandConnection& connection, const WaylandKeyboard& keyboard,
                      Shortcuts shortcuts);
    ~WaylandKeyCapture() override;

    std::unique_ptr<Token> capture(QWindow& window, Handler handler) override;

    bool eventFilter(QObject* window, QEvent* event) override;

private:
    class Watch;

    /// A key and a time stamp of the compositor's.
    using Press = std::pair<quint32, ulong>;

    Fate decide(const QKeyEvent& event);

    const WaylandConnection& m_connection;
    const WaylandKeyboard& m_keyboard;
    WaylandPointer<zwp_keyboard_shortcuts_inhibit_manager_v1> m_inhibition;
    /// The capture in force; not owned.
    Watch* m_watch = nullptr;
    /// The latest press, which the toolkit shows twice: as a question whether it is a shortcut of
    /// the window's, and as a press.
    std::optional<std::pair<Press, Fate>> m_decided;
};

} // namespace quorvantel::platform
