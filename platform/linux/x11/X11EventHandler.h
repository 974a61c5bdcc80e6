#pragma once

#include <xcb/xcb.h>

namespace quorvantel::platform {

class X11EventDispatcher;

/// Where a handler stands among those who see the X server's events, from the first to the last.
enum class X11EventRank {
    /// Notes what happens and keeps nothing, so that it sees what those after it keep: the time of
    /// the user's latest press, the keys that a synchronous grab lets through, the desktop's state.
    Observer,
    /// Takes every key while a hotkey is recorded, the hotkeys' own included.
    KeyCapture,
    /// Take their keys from the panel, which they hide.
    HotKeys,
    /// Takes the desktop's keys from the search field.
    Panel,
};

/// Sees the X server's events before the toolkit does, for as long as it lives.
class X11EventHandler {
public:
    /// `dispatcher` must outlive the handler. Among handlers of one rank, the earlier one sees an
    /// event first.
    X11EventHandler(X11EventDispatcher& dispatcher, X11EventRank rank);
    X11EventHandler(const X11EventHandler&) = delete;
    X11EventHandler& operator=(const X11EventHandler&) = delete;
    virtual ~X11EventHandler();

    /// Returns whether the event is kept: then neither the handlers after this one nor the toolkit
    /// get it. Handlers may come and go meanwhile, this one too.
    virtual bool handleEvent(const xcb_generic_event_t& event) = 0;

private:
    X11EventDispatcher& m_dispatcher;
};

/// What kind of event it is, whoever sent it.
inline unsigned int typeOf(const xcb_generic_event_t& event) {
    return event.response_type & 0x7FU;
}

/// The event as the structure of its kind.
template <typename Event>
const Event& eventAs(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

} // namespace quorvantel::platform
