#include "platform/linux/wayland/WaylandKeyboard.h"

#include "platform/linux/keyboard/KeySymbols.h"
#include "platform/linux/start/FileDescriptor.h"

#include <QKeyEvent>

#include <sys/mman.h>
#include <wayland-client-protocol.h>

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace quorvantel::platform {

namespace {

/// Real key maps have some ten kilobytes.
constexpr std::uint32_t maximumSize = 4U << 20U;

/// By which the numbers of XKB are greater than the kernel's.
constexpr std::uint32_t keyOffset = 8;

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

/// What a key types by itself, if that is a letter or a digit.
QString letterOf(const Keymap& keymap, xkb_keycode_t key, unsigned int layout) {
    const char32_t character = xkb_keysym_to_utf32(keymap.symbol(key, layout, false));
    return QChar::isLetterOrNumber(character) ? QString::fromUcs4(&character, 1) : QString();
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
        .enter =
            [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/, wl_surface* surface,
               wl_array* keys) {
                const std::span held(static_cast<const std::uint32_t*>(keys->data),
                                     keys->size / sizeof(std::uint32_t));
                auto& keyboard = *static_cast<WaylandKeyboard*>(self);
                keyboard.m_focus = surface;
                keyboard.m_heldKeys.emplace(held.begin(), held.end());
            },
        .leave =
            [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
               wl_surface* /*surface*/) { static_cast<WaylandKeyboard*>(self)->m_focus = nullptr; },
        .key = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
                  std::uint32_t /*time*/, std::uint32_t /*key*/, std::uint32_t /*state*/) {},
        .modifiers =
            [](void* self, wl_keyboard* /*keyboard*/, std::uint32_t /*serial*/,
               std::uint32_t /*depressed*/, std::uint32_t /*latched*/, std::uint32_t /*locked*/,
               std::uint32_t layout) { static_cast<WaylandKeyboard*>(self)->setLayout(layout); },
        .repeat_info = [](void* /*self*/, wl_keyboard* /*keyboard*/, std::int32_t /*rate*/,
                          std::int32_t /*delay*/) {},
    };
    m_keyboard.reset(wl_seat_get_keyboard(m_seat.get()));
    wl_keyboard_add_listener(m_keyboard.get(), &listener, this);
}

void WaylandKeyboard::setLayout(unsigned int layout) {
    m_layout = layout;
    const auto keys = std::exchange(m_heldKeys, std::nullopt);
    if (!keys || !m_keymap) {
        return;
    }
    QString held;
    for (const std::uint32_t key : *keys) {
        held += letterOf(*m_keymap, key + keyOffset, layout);
    }
    Q_EMIT entered(held);
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
