#pragma once

#include "support/XConnection.h"

#include <vector>

namespace quorvantel::testing {

/// The key symbols on the keys of an X server, first group, without and with Shift.
class KeyboardMap {
public:
    struct Position {
        xcb_keycode_t keycode;
        bool shifted;
    };

    explicit KeyboardMap(const XConnection& connection);

    /// Where a symbol is. Throws std::runtime_error when no key bears it.
    Position find(xcb_keysym_t keysym) const;

    /// The symbol of a key, or 0.
    xcb_keysym_t symbol(Position position) const;

private:
    xcb_keycode_t m_firstKeycode;
    std::size_t m_symbolsPerKey;
    std::vector<xcb_keysym_t> m_symbols;
};

} // namespace quorvantel::testing
