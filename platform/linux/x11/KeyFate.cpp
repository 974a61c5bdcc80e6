#include "platform/linux/x11/KeyFate.h"

#include "platform/GlobalHotKeys.h"
#include "platform/linux/keyboard/KeySymbols.h"

#include <X11/XF86keysym.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>

namespace quorvantel::platform {

namespace {

/// The range of the keys that are not of the typewriter, by vendor number.
constexpr xcb_keysym_t firstSpecialKey = 0x10080000;
constexpr xcb_keysym_t lastSpecialKey = 0x1008FFFF;

/// Special keys that edit text, which is the panel's own business.
constexpr std::array<xcb_keysym_t, 3> editingKeys{XF86XK_Copy, XF86XK_Cut, XF86XK_Paste};

/// Keys that adjust or capture something while the user goes on with what is on the screen.
constexpr std::array<xcb_keysym_t, 23> adjustingKeys{
    XK_Print,
    XK_Sys_Req, // What Print bears beside it.
    XF86XK_MonBrightnessUp,
    XF86XK_MonBrightnessDown,
    XF86XK_KbdLightOnOff,
    XF86XK_KbdBrightnessUp,
    XF86XK_KbdBrightnessDown,
    XF86XK_AudioLowerVolume,
    XF86XK_AudioMute,
    XF86XK_AudioRaiseVolume,
    XF86XK_AudioMicMute,
    XF86XK_AudioPlay,
    XF86XK_AudioStop,
    XF86XK_AudioPrev,
    XF86XK_AudioNext,
    XF86XK_AudioRecord,
    XF86XK_AudioPause,
    XF86XK_AudioRewind,
    XF86XK_AudioForward,
    XF86XK_AudioRepeat,
    XF86XK_AudioRandomPlay,
    XF86XK_AudioCycleTrack,
    XF86XK_TouchpadToggle,
};

bool contains(const auto& symbols, xcb_keysym_t symbol) {
    return std::ranges::find(symbols, symbol) != symbols.end();
}

bool includes(std::uint32_t modifiers, std::uint32_t wanted) {
    return (modifiers & wanted) == wanted;
}

/// Whether the X server itself switches to another virtual terminal by this key, with Control and
/// Alt; pressed once more, it would do so again.
bool switchesTerminal(xcb_keysym_t symbol) {
    return symbol >= XK_F1 && symbol <= XK_F12;
}

} // namespace

KeyFate fateOfKey(xcb_keysym_t symbol, std::uint32_t modifiers) {
    if (contains(adjustingKeys, symbol)) {
        return KeyFate::HandedOver;
    }
    if (symbol >= firstSpecialKey && symbol <= lastSpecialKey) {
        return contains(editingKeys, symbol) ? KeyFate::Kept : KeyFate::HandedOverForGood;
    }
    if (symbol == XK_VoidSymbol || symbol == XCB_NO_SYMBOL || isModifierSymbol(symbol)) {
        return KeyFate::Kept;
    }
    if (includes(modifiers, HotKeyModifier::command)) {
        return symbol == XK_comma ? KeyFate::Kept : KeyFate::HandedOverForGood;
    }
    if (includes(modifiers, HotKeyModifier::control | HotKeyModifier::option)) {
        return switchesTerminal(symbol) ? KeyFate::Kept : KeyFate::HandedOverForGood;
    }
    if (includes(modifiers, HotKeyModifier::option)) {
        if (symbol == XK_Tab || symbol == XK_ISO_Left_Tab) {
            return KeyFate::HandedOverForGood;
        }
        return symbol == XK_F4 ? KeyFate::Dismissing : KeyFate::Kept;
    }
    return KeyFate::Kept;
}

} // namespace quorvantel::platform
