#include "platform/linux/x11/X11KeyTranslation.h"

#include "platform/GlobalHotKeys.h"
#include "platform/linux/x11/KeyPositions.h"

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
    for (const auto& [name, candidate] : keyboard.keyCodes) {
        if (candidate != key) {
            continue;
        }
        if (const auto keyCode = virtualKeyForKeyName(name)) {
            return KeyPress{*keyCode, carbonModifiers(keyboard, state)};
        }
    }
    return std::nullopt;
}

} // namespace quorvantel::platform
