#include "platform/linux/wayland/WaylandUserSerial.h"

#include <unistd.h>
#include <wayland-client-protocol.h>

namespace quorvantel::platform {

namespace {

/// Later versions tell more of the same.
constexpr WaylandGlobals::Versions seatVersions{1, 4};

} // namespace

WaylandUserSerial::WaylandUserSerial(const WaylandConnection& connection)
    : m_seat(connection.globals().bind<wl_seat>(wl_seat_interface, seatVersions)) {
    static constexpr wl_seat_listener listener{
        .capabilities =
            [](void* self, wl_seat* /*seat*/, std::uint32_t capabilities) {
                static_cast<WaylandUserSerial*>(self)->follow(capabilities);
            },
        .name = [](void* /*self*/, wl_seat* /*seat*/, const char* /*name*/) {},
    };
    if (m_seat) {
        wl_seat_add_listener(m_seat.get(), &listener, this);
    }
}

void WaylandUserSerial::follow(std::uint32_t capabilities) {
    const bool hasKeyboard = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
    if (hasKeyboard && !m_keyboard) {
        listenToKeyboard();
    } else if (!hasKeyboard) {
        m_keyboard.reset();
    }
    const bool hasPointer = (capabilities & WL_SEAT_CAPABILITY_POINTER) != 0;
    if (hasPointer && !m_pointer) {
        listenToPointer();
    } else if (!hasPointer) {
        m_pointer.reset();
    }
}

void WaylandUserSerial::listenToKeyboard() {
    static constexpr wl_keyboard_listener listener{
        .keymap = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*format*/,
                     std::int32_t file, std::uint32_t /*size*/) { ::close(file); },
        .enter = [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t serial,
                    wl_surface* /*surface*/,
                    wl_array* /*keys*/) { static_cast<WaylandUserSerial*>(self)->m_last = serial; },
        .leave = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
                    wl_surface* /*surface*/) {},
        .key =
            [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t serial, std::uint32_t /*time*/,
               std::uint32_t /*key*/, std::uint32_t state) {
                if (state == WL_KEYBOARD_KEY_STATE_PRESSED) {
                    static_cast<WaylandUserSerial*>(self)->m_last = serial;
                }
            },
        .modifiers = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
                        std::uint32_t /*depressed*/, std::uint32_t /*latched*/,
                        std::uint32_t /*locked*/, std::uint32_t /*layout*/) {},
        .repeat_info = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::int32_t /*rate*/,
                          std::int32_t /*delay*/) {},
    };
    m_keyboard.reset(wl_seat_get_keyboard(m_seat.get()));
    wl_keyboard_add_listener(m_keyboard.get(), &listener, this);
}

void WaylandUserSerial::listenToPointer() {
    // The library may know of further events, which this version of the seat does not send.
    static constexpr auto listener = [] {
        wl_pointer_listener known{};
        known.enter = [](void* /*self*/, wl_pointer* /*pointer*/, std::uint32_t /*serial*/,
                         wl_surface* /*surface*/, wl_fixed_t /*x*/, wl_fixed_t /*y*/) {};
        known.leave = [](void* /*self*/, wl_pointer* /*pointer*/, std::uint32_t /*serial*/,
                         wl_surface* /*surface*/) {};
        known.motion = [](void* /*self*/, wl_pointer* /*pointer*/, std::uint32_t /*time*/,
                          wl_fixed_t /*x*/, wl_fixed_t /*y*/) {};
        known.button = [](void* self, wl_pointer* /*pointer*/, std::uint32_t serial,
                          std::uint32_t /*time*/, std::uint32_t /*button*/, std::uint32_t state) {
            if (state == WL_POINTER_BUTTON_STATE_PRESSED) {
                static_cast<WaylandUserSerial*>(self)->m_last = serial;
            }
        };
        known.axis = [](void* /*self*/, wl_pointer* /*pointer*/, std::uint32_t /*time*/,
                        std::uint32_t /*axis*/, wl_fixed_t /*value*/) {};
        return known;
    }();
    m_pointer.reset(wl_seat_get_pointer(m_seat.get()));
    wl_pointer_add_listener(m_pointer.get(), &listener, this);
}

} // namespace quorvantel::platform
