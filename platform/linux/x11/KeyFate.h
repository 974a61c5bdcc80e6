#pragma once

#include <xcb/xproto.h>

#include <cstdint>

namespace quorvantel::platform {

/// What becomes of a key that is pressed while the panel has the keyboard to itself.
enum class KeyFate {
    Kept,              ///< It is the panel's.
    HandedOver,        ///< It is for the desktop, and the panel stays.
    HandedOverForGood, ///< It is for the desktop, and the panel goes.
    Dismissing,        ///< The panel goes, and nothing else happens.
};

/// `symbol` is one that the key bears, as in <X11/keysymdef.h>; `modifiers` is a mask of
/// `HotKeyModifier` bits. Whatever a chord may mean by what its key types with Shift or without,
/// the panel keeps it if either of the two symbols is the panel's.
///
/// The desktop gets the keys that are not of a typewriter, such as those for the volume, and the
/// chords that can mean nothing in a search field: those with Super, with Control and Alt, and the
/// one that switches windows. Of these the panel keeps the one for its settings. The chord that
/// closes a window is meant for the panel and must not reach the window behind it.
///
/// AltGr is no Alt: it types letters.
KeyFate fateOfKey(xcb_keysym_t symbol, std::uint32_t modifiers);

} // namespace quorvantel::platform
