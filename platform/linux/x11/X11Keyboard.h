#pragma once

#include "platform/linux/x11/X11Display.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace quorvantel::platform {

/// The parts of the keyboard's state of configuration that hotkeys depend on: where the keys are
/// and which modifier bits the modifier keys set. A value, read from the server in one go.
struct X11Keyboard {
    /// All modifier bits of the core protocol. Above them, the state in an event holds the
    /// pointer's buttons and the keyboard's group.
    static constexpr unsigned int modifierMask = 0xFF;

    /// X key codes by the names of the X Keyboard Extension.
    std::unordered_map<std::string, xcb_keycode_t> keyCodes;

    /// The keys that change what others mean, Caps Lock among them. Num Lock, which is a key for
    /// its own sake on some keyboards, is none.
    std::unordered_set<xcb_keycode_t> modifierKeys;

    /// The modifier bits of the core protocol that the keys stand for. Super and Alt have theirs
    /// even on a keyboard without such keys: the bits that are usual for them.
    std::uint16_t superMask = XCB_MOD_MASK_4;
    std::uint16_t altMask = XCB_MOD_MASK_1;
    std::uint16_t numLockMask = 0;
    std::uint16_t scrollLockMask = 0;

    static X11Keyboard read(const X11Display& display);

    /// The bits that differ while a lock is on, which make no difference to a hotkey.
    std::uint16_t lockMask() const {
        return static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK | numLockMask | scrollLockMask);
    }

    /// The modifier bits for a Carbon modifier mask: Command is Super, Option is Alt.
    std::uint16_t modifierBits(std::uint32_t carbonModifiers) const;

    /// Every combination of lock bits, the empty one first: a grab holds for one of them only.
    std::vector<std::uint16_t> lockCombinations() const;

    friend bool operator==(const X11Keyboard&, const X11Keyboard&) = default;
};

} // namespace quorvantel::platform
