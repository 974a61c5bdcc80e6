#include "platform/linux/x11/X11RawEvents.h"

#include <xcb/xinput.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace quorvantel::platform {

X11RawEvents::Observation::Observation(X11RawEvents& events, Type type, Handler handler)
    : m_events(events), m_type(type), m_handler(std::move(handler)) {
    m_events.m_observations.push_back(this);
    m_events.select();
}

X11RawEvents::Observation::~Observation() {
    m_events.m_observations.remove(this);
    m_events.select();
}

X11RawEvents::X11RawEvents(const X11Display& display, X11EventDispatcher& events)
    : X11EventHandler(events, X11EventRank::Observer),
      m_display(display),
      m_opcode(display.extensionOpcode(&xcb_input_id)) {}

std::unique_ptr<X11RawEvents::Observation> X11RawEvents::observe(Type type, Handler handler) {
    if (m_opcode == 0) {
        return nullptr;
    }
    return std::unique_ptr<Observation>(new Observation(*this, type, std::move(handler)));
}

void X11RawEvents::select() const {
    std::uint32_t events = 0;
    for (const Observation* observation : m_observations) {
        events |= observation->m_type == Type::ButtonPress
                      ? XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS
                      : XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    }
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t events;
    } const mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(m_display.connection, m_display.root, 1, &mask.head);
    xcb_flush(m_display.connection);
}

void X11RawEvents::deliver(Type type, std::uint32_t detail, xcb_timestamp_t time) {
    // Handlers may end observations, their own and others, so the list is walked in a copy.
    const std::vector<Observation*> observations(m_observations.begin(), m_observations.end());
    for (Observation* const observation : observations) {
        const bool isStillThere =
            std::ranges::find(m_observations, observation) != m_observations.end();
        if (isStillThere && observation->m_type == type) {
            const Handler handler = observation->m_handler;
            handler(detail, time);
        }
    }
}

bool X11RawEvents::handleEvent(const xcb_generic_event_t& event) {
    if (m_observations.empty() || typeOf(event) != XCB_GE_GENERIC) {
        return false;
    }
    const auto& generic = eventAs<xcb_ge_generic_event_t>(event);
    if (generic.extension != m_opcode) {
        return false;
    }
    if (generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
        const auto& press = eventAs<xcb_input_raw_button_press_event_t>(event);
        deliver(Type::ButtonPress, press.detail, press.time);
    } else if (generic.event_type == XCB_INPUT_RAW_KEY_RELEASE) {
        const auto& release = eventAs<xcb_input_raw_key_release_event_t>(event);
        deliver(Type::KeyRelease, release.detail, release.time);
    }
    return false;
}

} // namespace quorvantel::platform
