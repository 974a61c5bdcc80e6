#pragma once

#include "platform/linux/wayland/WaylandConnection.h"

#include <cstdint>

namespace quorvantel::platform {

/// Remembers the serial number of the user's last key or button press in the launcher's windows, or
/// of their getting the keyboard. A program that is started with it may come to the front, which
/// focus-stealing prevention otherwise keeps it from. Main thread only.
class WaylandUserSerial {
public:
    /// `connection` must outlive the object.
    explicit WaylandUserSerial(const WaylandConnection& connection);
    WaylandUserSerial(const WaylandUserSerial&) = delete;
    WaylandUserSerial& operator=(const WaylandUserSerial&) = delete;

    /// 0 before the first.
    std::uint32_t last() const { return m_last; }

    /// Whose keyboard and pointer are meant; null where the compositor has none.
    wl_seat* seat() const { return m_seat.get(); }

private:
    void follow(std::uint32_t capabilities);
    void listenToKeyboard();
    void listenToPointer();

    WaylandPointer<wl_seat> m_seat;
    WaylandPointer<wl_keyboard> m_keyboard;
    WaylandPointer<wl_pointer> m_pointer;
    std::uint32_t m_last = 0;
};

} // namespace quorvantel::platform
