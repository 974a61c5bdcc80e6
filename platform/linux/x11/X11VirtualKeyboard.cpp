#include "platform/linux/x11/X11VirtualKeyboard.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <span>
#include <vector>

namespace quorvantel::platform {

namespace {

using namespace std::chrono_literals;

constexpr unsigned int modifierCount = 8;
constexpr auto holdingTime = 100ms;

/// A key for each of the modifiers of which none is down.
std::vector<xcb_keycode_t> missingKeys(const xcb_get_modifier_mapping_reply_t& mapping,
                                       const xcb_query_keymap_reply_t& keymap,
                                       std::uint16_t modifiers) {
    const std::span allKeys(
        xcb_get_modifier_mapping_keycodes(&mapping),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(&mapping)));
    const std::size_t perModifier = mapping.keycodes_per_modifier;
    std::vector<xcb_keycode_t> missing;
    for (unsigned int modifier = 0; modifier < modifierCount; ++modifier) {
        if ((modifiers & (1U << modifier)) == 0) {
            continue;
        }
        const auto keys = allKeys.subspan(modifier * perModifier, perModifier);
        const auto isAssigned = [](xcb_keycode_t key) { return key != 0; };
        const auto first = std::ranges::find_if(keys, isAssigned);
        const bool isHeld = std::ranges::any_of(
            keys, [&](xcb_keycode_t key) { return isAssigned(key) && isDown(keymap, key); });
        if (first != keys.end() && !isHeld) {
            missing.push_back(*first);
        }
    }
    return missing;
}

/// Keeps all other clients from being served.
class ServerGrab {
public:
    explicit ServerGrab(xcb_connection_t* connection) : m_connection(connection) {
        xcb_grab_server(connection);
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;
    ~ServerGrab() {
        xcb_ungrab_server(m_connection);
        xcb_flush(m_connection);
    }

private:
    xcb_connection_t* m_connection;
};

bool hasXTest(xcb_connection_t* connection) {
    const auto* const extension = xcb_get_extension_data(connection, &xcb_test_id);
    return extension != nullptr && extension->present != 0;
}

} // namespace

X11VirtualKeyboard::X11VirtualKeyboard(const X11Display& display)
    : m_display(display), m_isAvailable(hasXTest(display.connection)) {
    m_modifierRelease.setSingleShot(true);
    m_modifierRelease.setInterval(holdingTime);
    QObject::connect(&m_modifierRelease, &QTimer::timeout, &m_modifierRelease,
                     [this] { releaseModifiers(); });
}

X11VirtualKeyboard::~X11VirtualKeyboard() {
    releaseModifiers();
}

bool X11VirtualKeyboard::isDown(xcb_keycode_t key) const {
    const XcbPointer<xcb_query_keymap_reply_t> keymap(xcb_query_keymap_reply(
        m_display.connection, xcb_query_keymap(m_display.connection), nullptr));
    return keymap && platform::isDown(*keymap, key);
}

void X11VirtualKeyboard::press(xcb_keycode_t key, std::uint16_t modifiers) {
    xcb_connection_t* const connection = m_display.connection;
    releaseModifiers();
    // Of the modifiers, no client can press or release any between the question and the keys.
    const ServerGrab grab(connection);
    const auto keymapRequest = xcb_query_keymap(connection);
    const auto mappingRequest = xcb_get_modifier_mapping(connection);
    const XcbPointer<xcb_query_keymap_reply_t> keymap(
        xcb_query_keymap_reply(connection, keymapRequest, nullptr));
    const XcbPointer<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, mappingRequest, nullptr));
    if (keymap && mapping) {
        m_heldModifiers = missingKeys(*mapping, *keymap, modifiers);
    }
    for (const xcb_keycode_t modifier : m_heldModifiers) {
        send(XCB_KEY_PRESS, modifier);
    }
    send(XCB_KEY_PRESS, key);
    send(XCB_KEY_RELEASE, key);
    m_modifierRelease.start();
}

void X11VirtualKeyboard::endRepeat(xcb_keycode_t key) const {
    // A release on any keyboard ends it, even where the key was not down.
    send(XCB_KEY_RELEASE, key);
}

void X11VirtualKeyboard::releaseModifiers() {
    if (m_heldModifiers.empty()) {
        return;
    }
    while (!m_heldModifiers.empty()) {
        send(XCB_KEY_RELEASE, m_heldModifiers.back());
        m_heldModifiers.pop_back();
    }
    xcb_flush(m_display.connection);
}

void X11VirtualKeyboard::send(std::uint8_t eventType, xcb_keycode_t key) const {
    xcb_test_fake_input(m_display.connection, eventType, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0,
                        0, 0);
}

} // namespace quorvantel::platform
