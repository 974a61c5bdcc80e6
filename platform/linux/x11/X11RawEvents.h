#pragma once

#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11EventHandler.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>

namespace quorvantel::platform {

/// Observes the raw input events of the X Input Extension 2 on the root window, which arrive
/// whoever holds a grab and take nothing away from anybody.
///
/// Nothing is selected while nobody observes, so the launcher does not even see the user's keys
/// then. Main thread only; must outlive its observations.
class X11RawEvents : public X11EventHandler {
public:
    enum class Type { ButtonPress, KeyRelease };

    /// Receives the button number or the key code, and the server's time in milliseconds.
    using Handler = std::function<void(std::uint32_t detail, xcb_timestamp_t time)>;

    class Observation {
    public:
        ~Observation();
        Observation(const Observation&) = delete;
        Observation& operator=(const Observation&) = delete;

    private:
        friend class X11RawEvents;
        Observation(X11RawEvents& events, Type type, Handler handler);

        X11RawEvents& m_events;
        Type m_type;
        Handler m_handler;
    };

    X11RawEvents(const X11Display& display, X11EventDispatcher& events);

    /// Calls `handler` for each event of the type for as long as the observation lives. Absent when
    /// the server lacks the extension. The handler may destroy its own observation.
    std::unique_ptr<Observation> observe(Type type, Handler handler);

    bool handleEvent(const xcb_generic_event_t& event) override;

private:
    void select() const;
    void deliver(Type type, std::uint32_t detail, xcb_timestamp_t time);

    X11Display m_display;
    /// The extension's major opcode; 0 when the server lacks it.
    std::uint8_t m_opcode = 0;
    std::list<Observation*> m_observations;
};

} // namespace quorvantel::platform
