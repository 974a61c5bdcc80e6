#pragma once

#include "platform/linux/keyboard/Keymap.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace quorvantel::platform {

/// What a key means, by the symbols that it has alone and with Shift.
struct KeyMeaning {
    xkb_keysym_t plain;
    xkb_keysym_t shifted;

    friend bool operator==(const KeyMeaning&, const KeyMeaning&) = default;
};

/// A shortcut as desktops name it: by what the key means in the user's layout, not by where it is.
struct Accelerator {
    /// What the key means; `shifted` matters only to those who name a key by what it types.
    KeyMeaning key;
    /// A mask of `HotKeyModifier` bits.
    std::uint32_t modifiers;

    /// In the first layout, or in the first that has Latin letters there, which is where desktops
    /// look shortcuts up. Absent when the keyboard has no such key.
    static std::optional<Accelerator> at(std::uint32_t keyCode, std::uint32_t modifiers,
                                         const Keymap& keymap);

    /// Whether both are the same keys to press.
    bool isSameAs(const Accelerator& other) const {
        return key.plain == other.key.plain && modifiers == other.modifiers;
    }

    friend bool operator==(const Accelerator&, const Accelerator&) = default;
};

/// How a desktop writes the modifiers in front of a key, each with what separates it from the next.
struct AcceleratorSyntax {
    QStringView control;
    QStringView option;
    QStringView shift;
    QStringView command;
};

/// GTK's and GNOME's: "<Alt><Super>space".
inline constexpr AcceleratorSyntax gtkSyntax{u"<Control>", u"<Alt>", u"<Shift>", u"<Super>"};

/// The XDG shortcuts specification's, which the portal takes: "ALT+LOGO+space".
inline constexpr AcceleratorSyntax portalSyntax{u"CTRL+", u"ALT+", u"SHIFT+", u"LOGO+"};

/// The modifiers and the key's plain symbol by its name in xkbcommon.
QString written(const Accelerator& accelerator, const AcceleratorSyntax& syntax);

/// In words for the user: "Alt+Super+Space".
QString readable(const Accelerator& accelerator);

/// Reads what GTK writes, and all other ways to write the same; absent for a disabled shortcut, for
/// a modifier without a key and for modifiers that no hotkey of the launcher's has.
std::optional<Accelerator> fromGtkAccelerator(QStringView text);

} // namespace quorvantel::platform
