#include "platform/linux/wayland/WaylandKeyCapture.h"

#include "keyboard-shortcuts-inhibit-unstable-v1-client-protocol.h"

#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace quorvantel::platform {

class WaylandKeyCapture::Watch : public Token {
public:
    Watch(WaylandKeyCapture& owner, QWindow& window, Handler pressHandler)
        : handler(std::move(pressHandler)), m_owner(owner) {
        wl_surface* const surface = WaylandConnection::surfaceOf(window);
        wl_seat* const seat = m_owner.m_keyboard.seat();
        if (m_owner.m_inhibition && surface != nullptr && seat != nullptr) {
            m_inhibitor.reset(zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(
                m_owner.m_inhibition.get(), surface, seat));
            m_owner.m_connection.flush();
        }
    }
    ~Watch() override {
        if (m_owner.m_watch == this) {
            m_owner.m_watch = nullptr;
        }
        m_inhibitor.reset();
        m_owner.m_connection.flush();
    }

    const Handler handler;

private:
    WaylandKeyCapture& m_owner;
    WaylandPointer<zwp_keyboard_shortcuts_inhibitor_v1> m_inhibitor;
};

WaylandKeyCapture::WaylandKeyCapture(const WaylandConnection& connection,
                                     const WaylandKeyboard& keyboard, Shortcuts shortcuts)
    : m_connection(connection),
      m_keyboard(keyboard),
      m_inhibition(shortcuts == Shortcuts::Left
                       ? nullptr
                       : connection.globals().bind<zwp_keyboard_shortcuts_inhibit_manager_v1>(
                             zwp_keyboard_shortcuts_inhibit_manager_v1_interface, {1, 1})) {}

WaylandKeyCapture::~WaylandKeyCapture() = default;

std::unique_ptr<KeyCapture::Token> WaylandKeyCapture::capture(QWindow& window, Handler handler) {
    auto watch = std::make_unique<Watch>(*this, window, std::move(handler));
    m_watch = watch.get();
    // It stays with the window: a capture may end before the last shape of a press has come.
    window.removeEventFilter(this);
    window.installEventFilter(this);
    return watch;
}

bool WaylandKeyCapture::eventFilter(QObject* /*window*/, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // Accepted, it keeps the window's own shortcuts from the press that follows.
        auto* const press = static_cast<QKeyEvent*>(event);
        const bool isKept = decide(*press) == Fate::Swallowed;
        press->setAccepted(isKept);
        return isKept;
    }
    return event->type() == QEvent::KeyPress &&
           decide(*static_cast<QKeyEvent*>(event)) == Fate::Swallowed;
}

KeyCapture::Fate WaylandKeyCapture::decide(const QKeyEvent& event) {
    const Press press{event.nativeScanCode(), event.timestamp()};
    if (m_decided && m_decided->first == press) {
        return m_decided->second;
    }
    if (m_watch == nullptr) {
        return Fate::PassedOn;
    }
    const auto& keymap = m_keyboard.keymap();
    const auto keyPress =
        keymap ? keymap->press(event.nativeScanCode(), event.nativeModifiers()) : std::nullopt;
    Fate fate = Fate::Swallowed;
    if (keyPress && !event.isAutoRepeat()) {
        // A copy, since it may end the capture.
        const Handler handler = m_watch->handler;
        fate = handler(*keyPress);
    }
    m_decided = {press, fate};
    return fate;
}

} // namespace quorvantel::platform
