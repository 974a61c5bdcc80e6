#include "platform/linux/x11/X11Keyboard.h"

#include "platform/linux/keyboard/KeySymbols.h"

#include <QKeyEvent>

#include <xkbcommon/xkbcommon-x11.h>

#include <utility>

namespace quorvantel::platform {

namespace {

// The kinds of events of the X Keyboard Extension that tell of another key map.
constexpr unsigned int newKeyboardNotify = 0;
constexpr unsigned int mapNotify = 1;

} // namespace

X11Keyboard::X11Keyboard(const X11Display& display, X11EventDispatcher& events)
    : X11EventHandler(events, X11EventRank::Observer),
      m_display(display),
      // Nothing is looked up in files.
      m_context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES)) {
    const int isPresent = xkb_x11_setup_xkb_extension(
        display.connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
        XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &m_eventType, nullptr);
    if (isPresent != 0) {
        m_device = xkb_x11_get_core_keyboard_device_id(display.connection);
    }
    m_keymap = read();
}

const Keymap& X11Keyboard::keymap() {
    if (std::exchange(m_isStale, false)) {
        Keymap keymap = read();
        m_hasChanged = m_hasChanged || keymap != m_keymap;
        m_keymap = std::move(keymap);
    }
    return m_keymap;
}

QChar X11Keyboard::baseCharacter(const QKeyEvent& event) {
    const auto symbol =
        keymap().baseSymbol(event.nativeScanCode(), layoutOf(event.nativeModifiers()));
    return symbol && isLatin1(*symbol) ? QChar(static_cast<char16_t>(*symbol)) : QChar();
}

bool X11Keyboard::handleEvent(const xcb_generic_event_t& event) {
    if (tellsOfChange(event) && !std::exchange(m_isStale, true)) {
        QMetaObject::invokeMethod(this, &X11Keyboard::announce, Qt::QueuedConnection);
    }
    return false;
}

bool X11Keyboard::tellsOfChange(const xcb_generic_event_t& event) const {
    if (m_eventType == 0 || typeOf(event) != m_eventType) {
        return typeOf(event) == XCB_MAPPING_NOTIFY;
    }
    // The byte that names the event of the extension.
    return event.pad0 == newKeyboardNotify || event.pad0 == mapNotify;
}

void X11Keyboard::announce() {
    keymap();
    if (std::exchange(m_hasChanged, false)) {
        Q_EMIT changed();
    }
}

Keymap X11Keyboard::read() const {
    if (m_device < 0) {
        return {};
    }
    return Keymap(xkb_x11_keymap_new_from_device(m_context.get(), m_display.connection, m_device,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace quorvantel::platform
