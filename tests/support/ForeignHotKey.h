#pragma once

#include "support/XConnection.h"

namespace quorvantel::testing {

/// A key combination that another application has, or tries to have, for itself: a passive grab on
/// the root window, held for the object's life.
class ForeignHotKey {
public:
    /// `modifiers` is a mask of the core protocol, such as
    /// `XCB_MOD_MASK_1 | XCB_MOD_MASK_4` for Alt and Super.
    ForeignHotKey(const QByteArray& display, xcb_keysym_t keysym, std::uint16_t modifiers);

    /// Whether the server granted the combination; it does not when a client already holds it.
    bool isHeld() const { return m_held; }

    /// How often the combination was pressed up to now.
    int presses();

private:
    XConnection m_connection;
    bool m_held;
    int m_presses = 0;
};

} // namespace quorvantel::testing
