#pragma once

#include <cstdint>
#include <vector>

namespace quorvantel::platform {

/// Which bits the modifier keys of a keyboard set in the state of its real modifiers, as the X
/// protocol and XKB number them: Shift, Lock, Control, Mod1 to Mod5, from the lowest bit on.
struct KeyModifiers {
    static constexpr std::uint16_t shiftMask = 1U << 0;
    static constexpr std::uint16_t capsLockMask = 1U << 1;
    static constexpr std::uint16_t controlMask = 1U << 2;
    /// All of them. Above, the state in an X event holds the pointer's buttons and the layout.
    static constexpr unsigned int all = 0xFF;

    /// Super and Alt have theirs even on a keyboard without such keys: the bits that are usual for
    /// them.
    std::uint16_t superMask = 1U << 6;
    std::uint16_t altMask = 1U << 3;
    std::uint16_t numLockMask = 0;
    std::uint16_t scrollLockMask = 0;

    /// The bits for a Carbon modifier mask: Command is Super, Option is Alt.
    std::uint16_t bitsOf(std::uint32_t carbonModifiers) const;

    /// The Carbon modifier mask for a state of the modifiers; everything but Command, Shift, Option
    /// and Control is dropped.
    std::uint32_t carbonModifiers(std::uint32_t state) const;

    /// Every combination of the bits that differ while a lock is on, which make no difference to a
    /// hotkey; from none to all.
    std::vector<std::uint16_t> lockCombinations() const;

    friend bool operator==(const KeyModifiers&, const KeyModifiers&) = default;
};

} // namespace quorvantel::platform
