#pragma once

#include "platform/KeyCapture.h"
#include "platform/linux/keyboard/KeyModifiers.h"

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quorvantel::platform {

/// What the keys of a keyboard are and mean, in each of its layouts (X Keyboard Extension). A
/// value; copies share the key map.
///
/// Keys have the numbers of XKB, which are those of the X protocol and, on Wayland, the kernel's
/// plus 8. Symbols are as in <xkbcommon/xkbcommon-keysyms.h>.
class Keymap {
public:
    /// A keyboard without keys.
    Keymap() = default;

    /// Takes the reference over; null for a keyboard without keys.
    explicit Keymap(xkb_keymap* keymap);

    /// A keyboard with a US layout; without keys where the files of xkeyboard-config are missing.
    static Keymap us();

    /// Reads the text format of XKB, in which Wayland compositors tell the key map; absent when the
    /// text is none.
    static std::optional<Keymap> fromText(const std::string& text);

    /// The key at the physical position of a virtual key code; absent when the keyboard has none.
    std::optional<xkb_keycode_t> keyAt(std::uint32_t virtualKey) const;

    /// What a key types by a layout, without a modifier or with Shift; 0 for nothing. The layouts
    /// that a key lacks are those that it has over again.
    xkb_keysym_t symbol(xkb_keycode_t key, unsigned int layout, bool isShifted) const;

    /// What a key types while no modifier is held. When that is not Latin-1, as with a Greek
    /// layout, the first of the other layouts that have Latin-1 there counts instead. Absent for a
    /// key that types nothing.
    std::optional<xkb_keysym_t> baseSymbol(xkb_keycode_t key, unsigned int layout) const;

    /// What a press of a key means, whatever the layout, while the real modifiers are in this
    /// state; absent for the keys that change what others mean. Num Lock, which is a key for its
    /// own sake on some keyboards, is none of them.
    std::optional<KeyPress> press(xkb_keycode_t key, std::uint32_t state) const;

    const KeyModifiers& modifiers() const { return m_modifiers; }

    /// Writes both key maps out, which takes milliseconds.
    friend bool operator==(const Keymap& one, const Keymap& other);

private:
    KeyModifiers readModifiers() const;

    /// Null for a keyboard without keys.
    std::shared_ptr<xkb_keymap> m_keymap;
    KeyModifiers m_modifiers;
};

} // namespace quorvantel::platform
