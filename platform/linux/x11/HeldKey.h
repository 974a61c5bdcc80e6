#pragma once

#include <xcb/xcb.h>

#include <optional>

namespace quorvantel::platform {

/// A key that is held down. The server writes its repeats as a release and a press of the same
/// time, or as presses alone.
class HeldKey {
public:
    explicit HeldKey(xcb_keycode_t key) : m_key(key) {}

    xcb_keycode_t key() const { return m_key; }

    /// To be told of every release, of other keys as well.
    void noteRelease(const xcb_key_release_event_t& event) {
        if (event.detail == m_key) {
            m_releaseTime = event.time;
        }
    }

    /// Whether the press is a repeat of this key rather than a press.
    bool isRepeat(const xcb_key_press_event_t& event) const {
        return event.detail == m_key && m_releaseTime.value_or(event.time) == event.time;
    }

private:
    xcb_keycode_t m_key;
    /// Of the latest release, which a repeat is as well.
    std::optional<xcb_timestamp_t> m_releaseTime;
};

} // namespace quorvantel::platform
