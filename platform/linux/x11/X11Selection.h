#pragma once

#include "platform/linux/x11/X11Display.h"

#include <optional>

namespace quorvantel::platform {

/// A selection by whose owner a manager of the session is known, and the events about it.
class X11Selection {
public:
    /// From now on the server tells of each new owner.
    X11Selection(const X11Display& display, const char* name);

    /// The owner, in a round trip to the server; none when there is none.
    xcb_window_t owner() const;

    /// The owner that an event tells of, which may be none; absent when it is about another matter,
    /// as all are where the server lacks such events.
    std::optional<xcb_window_t> newOwner(const xcb_generic_event_t& event) const;

private:
    X11Display m_display;
    xcb_atom_t m_name;
    /// 0 when the server lacks the event.
    std::uint8_t m_event = 0;
};

} // namespace quorvantel::platform
