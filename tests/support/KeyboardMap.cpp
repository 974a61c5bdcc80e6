#include "support/KeyboardMap.h"

#include <span>
#include <stdexcept>
#include <string>

namespace quorvantel::testing {

KeyboardMap::KeyboardMap(const XConnection& connection) {
    const xcb_setup_t* setup = xcb_get_setup(connection.get());
    m_firstKeycode = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const XReply<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        connection.get(), xcb_get_keyboard_mapping(connection.get(), m_firstKeycode, count),
        nullptr));
    if (!reply) {
        throw std::runtime_error("the X server has no keyboard");
    }
    m_symbolsPerKey = reply->keysyms_per_keycode;
    const std::span<const xcb_keysym_t> symbols(xcb_get_keyboard_mapping_keysyms(reply.get()),
                                                count * m_symbolsPerKey);
    m_symbols.assign(symbols.begin(), symbols.end());
}

KeyboardMap::Position KeyboardMap::find(xcb_keysym_t keysym) const {
    const std::size_t keys = m_symbols.size() / m_symbolsPerKey;
    for (const bool shifted : {false, true}) {
        for (std::size_t key = 0; key < keys; ++key) {
            const Position position{static_cast<xcb_keycode_t>(m_firstKeycode + key), shifted};
            if (symbol(position) == keysym) {
                return position;
            }
        }
    }
    throw std::runtime_error("no key bears the symbol " + std::to_string(keysym));
}

xcb_keysym_t KeyboardMap::symbol(Position position) const {
    const std::size_t index =
        (position.keycode - m_firstKeycode) * m_symbolsPerKey + (position.shifted ? 1 : 0);
    return index < m_symbols.size() ? m_symbols[index] : XCB_NO_SYMBOL;
}

} // namespace quorvantel::testing
