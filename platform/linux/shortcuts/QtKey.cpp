#include "platform/linux/shortcuts/QtKey.h"

#include "platform/GlobalHotKeys.h"

#include <QChar>

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace quorvantel::platform {

namespace {

struct NamedKey {
    xkb_keysym_t symbol;
    Qt::Key key;
};

/// The keys that type no character. On the number pad those that name their digits do.
constexpr std::array namedKeys{
    NamedKey{XKB_KEY_BackSpace, Qt::Key_Backspace},
    NamedKey{XKB_KEY_Tab, Qt::Key_Tab},
    NamedKey{XKB_KEY_Return, Qt::Key_Return},
    NamedKey{XKB_KEY_Escape, Qt::Key_Escape},
    NamedKey{XKB_KEY_Home, Qt::Key_Home},
    NamedKey{XKB_KEY_Left, Qt::Key_Left},
    NamedKey{XKB_KEY_Up, Qt::Key_Up},
    NamedKey{XKB_KEY_Right, Qt::Key_Right},
    NamedKey{XKB_KEY_Down, Qt::Key_Down},
    NamedKey{XKB_KEY_Prior, Qt::Key_PageUp},
    NamedKey{XKB_KEY_Next, Qt::Key_PageDown},
    NamedKey{XKB_KEY_End, Qt::Key_End},
    NamedKey{XKB_KEY_Insert, Qt::Key_Insert},
    NamedKey{XKB_KEY_Delete, Qt::Key_Delete},
    NamedKey{XKB_KEY_Menu, Qt::Key_Menu},
    NamedKey{XKB_KEY_KP_Enter, Qt::Key_Enter},
    NamedKey{XKB_KEY_KP_Home, Qt::Key_Home},
    NamedKey{XKB_KEY_KP_Left, Qt::Key_Left},
    NamedKey{XKB_KEY_KP_Up, Qt::Key_Up},
    NamedKey{XKB_KEY_KP_Right, Qt::Key_Right},
    NamedKey{XKB_KEY_KP_Down, Qt::Key_Down},
    NamedKey{XKB_KEY_KP_Prior, Qt::Key_PageUp},
    NamedKey{XKB_KEY_KP_Next, Qt::Key_PageDown},
    NamedKey{XKB_KEY_KP_End, Qt::Key_End},
    NamedKey{XKB_KEY_KP_Begin, Qt::Key_Clear},
    NamedKey{XKB_KEY_KP_Insert, Qt::Key_Insert},
    NamedKey{XKB_KEY_KP_Delete, Qt::Key_Delete},
    NamedKey{XKB_KEY_XF86AudioMute, Qt::Key_VolumeMute},
    NamedKey{XKB_KEY_XF86AudioLowerVolume, Qt::Key_VolumeDown},
    NamedKey{XKB_KEY_XF86AudioRaiseVolume, Qt::Key_VolumeUp},
    // What xkeyboard-config has at the positions of F13 and on. Qt counts two further.
    NamedKey{XKB_KEY_XF86Tools, Qt::Key_Tools},
    NamedKey{XKB_KEY_XF86Launch5, Qt::Key_Launch7},
    NamedKey{XKB_KEY_XF86Launch6, Qt::Key_Launch8},
    NamedKey{XKB_KEY_XF86Launch7, Qt::Key_Launch9},
    NamedKey{XKB_KEY_XF86Launch8, Qt::Key_LaunchA},
    NamedKey{XKB_KEY_XF86Launch9, Qt::Key_LaunchB},
    NamedKey{XKB_KEY_XF86AudioMicMute, Qt::Key_MicMute},
};

constexpr xkb_keysym_t lastFunctionKey = XKB_KEY_F35;

std::optional<int> keyOf(xkb_keysym_t symbol) {
    if (symbol >= XKB_KEY_F1 && symbol <= lastFunctionKey) {
        return Qt::Key_F1 + static_cast<int>(symbol - XKB_KEY_F1);
    }
    const auto* const named = std::ranges::find(namedKeys, symbol, &NamedKey::symbol);
    if (named != namedKeys.end()) {
        return named->key;
    }
    const char32_t character = xkb_keysym_to_utf32(symbol);
    return QChar::isPrint(character) ? std::optional(static_cast<int>(QChar::toUpper(character)))
                                     : std::nullopt;
}

} // namespace

std::optional<int> qtKeyOf(const Accelerator& accelerator) {
    const auto has = [&](std::uint32_t modifier) {
        return (accelerator.modifiers & modifier) != 0;
    };
    const KeyMeaning& key = accelerator.key;
    const bool isLetter = QChar::isLetter(xkb_keysym_to_utf32(key.plain));
    const bool typesOther =
        QChar::isPrint(xkb_keysym_to_utf32(key.shifted)) && !isLetter && key.shifted != key.plain;
    const bool isShiftConsumed = has(HotKeyModifier::shift) && typesOther;
    auto result = keyOf(isShiftConsumed ? key.shifted : key.plain);
    if (!result) {
        return std::nullopt;
    }
    const auto add = [&](std::uint32_t modifier, Qt::KeyboardModifier qtModifier) {
        if (has(modifier)) {
            *result |= static_cast<int>(qtModifier);
        }
    };
    add(HotKeyModifier::control, Qt::ControlModifier);
    add(HotKeyModifier::option, Qt::AltModifier);
    add(HotKeyModifier::command, Qt::MetaModifier);
    if (!isShiftConsumed) {
        add(HotKeyModifier::shift, Qt::ShiftModifier);
    }
    return result;
}

} // namespace quorvantel::platform
