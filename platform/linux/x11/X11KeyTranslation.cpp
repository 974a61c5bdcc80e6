#include "platform/linux/x11/X11KeyTranslation.h"

#include "platform/GlobalHotKeys.h"
#include "platform/linux/x11/KeyPositions.h"

#include <algorithm>

namespace quorvantel::platform {

std::uint32_t carbonModifiers(const X11Keyboard& keyboard, std::uint16_t state) {
    std::uint32_t modifiers = 0;
    for (const std::uint32_t modifier : {HotKeyModifier::command, HotKeyModifier::shift,
                                         HotKeyModifier::option, HotKeyModifier::control}) {
        if ((state & keyboard.modifierBits(modifier)) != 0) {
            modifiers |= modifier;
        }
    }
    return modifiers;
}

std::optional<KeyPress> translateKeyPress(const X11Keyboard& keyboard, xcb_keycode_t key,
                                          std::uint16_t state) {
    if (keyboard.modifierKeys.contains(key)) {
        return std::nullopt;
    }
    KeyPress press{std::nullopt, carbonModifiers(keyboard, state)};
    const auto hasKey = [key](const auto& named) { return named.second == key; };
    const auto named = std::ranges::find_if(keyboard.keyCodes, hasKey);
    if (named != keyboard.keyCodes.end()) {
        press.keyCode = virtualKeyForKeyName(named->first);
    }
    return press;
}

} // namespace quorvantel::platform
