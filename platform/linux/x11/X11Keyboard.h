#pragma once

#include "platform/Keyboard.h"
#include "platform/linux/keyboard/Keymap.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"

#include <QObject>

#include <memory>

namespace quorvantel::platform {

/// The keyboard of the X server as it is now. Main thread only.
class X11Keyboard : public QObject, public Keyboard, public X11EventHandler {
    Q_OBJECT

public:
    /// Reads the key map from the server.
    X11Keyboard(const X11Display& display, X11EventDispatcher& events);

    /// What the keys mean. Waits for the server's answer where that has said meanwhile that another
    /// key map is in force, and not otherwise.
    const Keymap& keymap();

    QChar baseCharacter(const QKeyEvent& event) override;
    bool handleEvent(const xcb_generic_event_t& event) override;

Q_SIGNALS:
    /// The key map is another, which is told from the event loop, once for a burst of changes.
    void changed();

private:
    struct Unref {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
    };

    bool tellsOfChange(const xcb_generic_event_t& event) const;
    void announce();
    Keymap read() const;

    X11Display m_display;
    std::unique_ptr<xkb_context, Unref> m_context;
    /// The type of the events of the X Keyboard Extension; 0 when the server lacks it.
    std::uint8_t m_eventType = 0;
    /// The keyboard that stands for all; negative when the server lacks the extension.
    std::int32_t m_device = -1;
    Keymap m_keymap;
    bool m_isStale = false;
    bool m_hasChanged = false;
};

/// The number of the keyboard's layout in the state that an X event tells.
inline unsigned int layoutOf(std::uint32_t state) {
    constexpr unsigned int shift = 13;
    constexpr unsigned int mask = 0x3;
    return state >> shift & mask;
}

} // namespace quorvantel::platform
