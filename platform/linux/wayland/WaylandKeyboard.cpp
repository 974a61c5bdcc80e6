#include "platform/linux/wayland/WaylandKeyboard.h"

#include "platform/linux/keyboard/KeySymbols.h"
#include "platform/linux/start/FileDescriptor.h"

#include <QKeyEvent>

#include <sys/mman.h>
#include <wayland-client-protocol.h>

#include <algorithm>
#include <string>

namespace quorvantel::platform {

namespace {

/// Real key maps have some ten kilobytes.
constexpr std::uint32_t maximumSize = 4U << 20U;

/// The text in a file that another process may write to; empty when it cannot be read.
std::string contents(int file, std::uint32_t size) {
    void* const memory = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (memory == MAP_FAILED) {
        return {};
    }
    const auto* const begin = static_cast<const char*>(memory);
    std::string text(begin, std::find(begin, begin + size, '\0'));
    ::munmap(memory, size);
    return text;
}

} // namespace

WaylandKeyboard::WaylandKeyboard(const WaylandConnection& connection)
    : m_seat(connection.globals().bind<wl_seat>(wl_seat_interface, {1, 5})) {
    static constexpr wl_seat_listener listener{
        .capabilities =
            [](void* self, wl_seat* /*seat*/, std::uint32_t capabilities) {
                static_cast<WaylandKeyboard*>(self)->setPresent(
                    (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0);
            },
        .name = [](void* /*self*/, wl_seat* /*seat*/, const char* /*name*/) {},
    };
    if (m_seat) {
        wl_seat_add_listener(m_seat.get(), &listener, this);
    }
}

QChar WaylandKeyboard::baseCharacter(const QKeyEvent& event) {
    const auto symbol =
        m_keymap ? m_keymap->baseSymbol(event.nativeScanCode(), m_layout) : std::nullopt;
    return symbol && isLatin1(*symbol) ? QChar(static_cast<char16_t>(*symbol)) : QChar();
}

void WaylandKeyboard::setPresent(bool isPresent) {
    if (!isPresent || m_keyboard) {
        // A keyboard that is gone is best described by its key map.
        return;
    }
    static constexpr wl_keyboard_listener listener{
        .keymap =
            [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t format, int file,
               std::uint32_t size) {
                static_cast<WaylandKeyboard*>(self)->read(format, file, size);
            },
        .enter = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
                    wl_surface* /*surface*/, wl_array* /*keys*/) {},
        .leave = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
                    wl_surface* /*surface*/) {},
        .key = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
                  std::uint32_t /*time*/, std::uint32_t /*key*/, std::uint32_t /*state*/) {},
        .modifiers =
            [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
               std::uint32_t /*depressed*/, std::uint32_t /*latched*/, std::uint32_t /*locked*/,
               std::uint32_t layout) { static_cast<WaylandKeyboard*>(self)->m_layout = layout; },
        .repeat_info = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::int32_t /*rate*/,
                          std::int32_t /*delay*/) {},
    };
    m_keyboard.reset(wl_seat_get_keyboard(m_seat.get()));
    wl_keyboard_add_listener(m_keyboard.get(), &listener, this);
}

void WaylandKeyboard::read(std::uint32_t format, int file, std::uint32_t size) {
    const FileDescriptor owned(file);
    const bool isReadable =
        format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0 && size <= maximumSize;
    auto keymap = isReadable ? Keymap::fromText(contents(file, size)) : std::nullopt;
    if (!keymap) {
        keymap = Keymap::us();
    }
    if (keymap != m_keymap) {
        m_keymap = std::move(keymap);
        Q_EMIT keymapChanged();
    }
}

} // namespace quorvantel::platform
