#pragma once

#include <xkbcommon/xkbcommon.h>

namespace quorvantel::platform {

/// Whether a key symbol is a printable character of Latin-1; its value is then that of the
/// character.
constexpr bool isLatin1(xkb_keysym_t symbol) {
    return (symbol >= 0x20 && symbol <= 0x7E) || (symbol >= 0xA0 && symbol <= 0xFF);
}

/// Whether a key with this symbol changes what others mean, as Shift, Caps Lock and AltGr do.
constexpr bool isModifierSymbol(xkb_keysym_t symbol) {
    return (symbol >= XKB_KEY_Shift_L && symbol <= XKB_KEY_Hyper_R) ||
           (symbol >= XKB_KEY_ISO_Lock && symbol <= XKB_KEY_ISO_Level5_Lock) ||
           symbol == XKB_KEY_Mode_switch || symbol == XKB_KEY_Num_Lock;
}

} // namespace quorvantel::platform
