#pragma once

#include "platform/GlobalHotKeys.h"

#include <QString>

#include <cstdint>

namespace quorvantel {

namespace HotKeyModifier = platform::HotKeyModifier;

/// A key with modifiers that summons the launcher.
struct HotKeyBinding {
    /// The virtual key code: it names a physical position, whatever the keyboard layout; 49 is the
    /// space bar.
    std::uint32_t keyCode;
    /// A mask of `HotKeyModifier` bits.
    std::uint32_t modifiers;

    /// Option+Command+Space: used where nothing is stored, and where what is stored fails.
    static constexpr HotKeyBinding defaultBinding() {
        return {49, HotKeyModifier::command | HotKeyModifier::option};
    }

    /// Whether a system-wide hotkey may have these modifiers: it needs Command or Control, or it
    /// would take keys that people type with.
    constexpr bool hasRequiredModifier() const {
        return (modifiers & (HotKeyModifier::command | HotKeyModifier::control)) != 0;
    }

    /// The binding as menus show it: "⌃", "⌥", "⇧", "⌘" in this order, then the key's name on a US
    /// keyboard, as in "⌥⌘Space". A key without a name shows as "key " and its code.
    QString displayText() const;

    friend constexpr bool operator==(const HotKeyBinding&, const HotKeyBinding&) = default;
};

/// The name of a virtual key on a US keyboard, such as "A", "Space" or "⌫"; "key " followed by the
/// code in decimal for a key that has none.
QString virtualKeyName(std::uint32_t keyCode);

} // namespace quorvantel
