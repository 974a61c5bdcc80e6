#include "platform/linux/shortcuts/Accelerator.h"

#include "platform/GlobalHotKeys.h"

#include <xkbcommon/xkbcommon.h>

#include <array>

namespace quorvantel::platform {

namespace {

/// Of the X Keyboard Extension.
constexpr unsigned int maximumLayouts = 4;

constexpr AcceleratorSyntax readableSyntax{u"Ctrl+", u"Alt+", u"Shift+", u"Super+"};

struct ModifierName {
    QStringView name;
    std::uint32_t modifier;
};

/// As gtk_accelerator_parse() has them, in lower case; the virtual modifiers are where
/// xkeyboard-config puts them.
constexpr std::array gtkModifierNames{
    ModifierName{u"control", HotKeyModifier::control},
    ModifierName{u"ctrl", HotKeyModifier::control},
    ModifierName{u"ctl", HotKeyModifier::control},
    ModifierName{u"primary", HotKeyModifier::control},
    ModifierName{u"alt", HotKeyModifier::option},
    ModifierName{u"mod1", HotKeyModifier::option},
    ModifierName{u"shift", HotKeyModifier::shift},
    ModifierName{u"shft", HotKeyModifier::shift},
    ModifierName{u"super", HotKeyModifier::command},
    ModifierName{u"mod4", HotKeyModifier::command},
};

std::optional<std::uint32_t> gtkModifier(QStringView name) {
    for (const ModifierName& known : gtkModifierNames) {
        if (name.compare(known.name, Qt::CaseInsensitive) == 0) {
            return known.modifier;
        }
    }
    return std::nullopt;
}

QString symbolName(xkb_keysym_t symbol) {
    std::array<char, 64> name{};
    xkb_keysym_get_name(symbol, name.data(), name.size());
    return QString::fromLatin1(name.data());
}

QString prefixOf(std::uint32_t modifiers, const AcceleratorSyntax& syntax) {
    QString prefix;
    const auto append = [&](std::uint32_t modifier, QStringView text) {
        if ((modifiers & modifier) != 0) {
            prefix += text;
        }
    };
    append(HotKeyModifier::control, syntax.control);
    append(HotKeyModifier::option, syntax.option);
    append(HotKeyModifier::shift, syntax.shift);
    append(HotKeyModifier::command, syntax.command);
    return prefix;
}

/// What is printed on the key.
QString keyLabel(xkb_keysym_t symbol) {
    switch (symbol) {
    case XKB_KEY_Prior:
        return QStringLiteral("Page Up");
    case XKB_KEY_Next:
        return QStringLiteral("Page Down");
    default:
        break;
    }
    const char32_t character = xkb_keysym_to_utf32(symbol);
    if (QChar::isPrint(character) && character != U' ') {
        return QString::fromUcs4(&character, 1).toUpper();
    }
    QString name = symbolName(symbol);
    name[0] = name[0].toUpper();
    return name;
}

} // namespace

std::optional<Accelerator> Accelerator::at(std::uint32_t keyCode, std::uint32_t modifiers,
                                           const Keymap& keymap) {
    const auto key = keymap.keyAt(keyCode);
    const auto plain = key ? keymap.baseSymbol(*key, 0) : std::nullopt;
    if (!plain) {
        return std::nullopt;
    }
    unsigned int layout = 0;
    while (layout < maximumLayouts && keymap.symbol(*key, layout, false) != *plain) {
        ++layout;
    }
    return Accelerator{{*plain, keymap.symbol(*key, layout, true)}, modifiers};
}

QString written(const Accelerator& accelerator, const AcceleratorSyntax& syntax) {
    return prefixOf(accelerator.modifiers, syntax) + symbolName(accelerator.key.plain);
}

QString readable(const Accelerator& accelerator) {
    return prefixOf(accelerator.modifiers, readableSyntax) + keyLabel(accelerator.key.plain);
}

std::optional<Accelerator> fromGtkAccelerator(QStringView text) {
    std::uint32_t modifiers = 0;
    while (text.startsWith(u'<')) {
        const qsizetype end = text.indexOf(u'>');
        const auto modifier = gtkModifier(text.mid(1, end - 1));
        if (end < 0 || !modifier) {
            return std::nullopt;
        }
        modifiers |= *modifier;
        text = text.mid(end + 1);
    }
    // GNOME's own name for the key that is above Tab in any layout.
    const QByteArray name = text == u"Above_Tab" ? QByteArrayLiteral("grave") : text.toUtf8();
    const xkb_keysym_t symbol =
        xkb_keysym_to_lower(xkb_keysym_from_name(name.constData(), XKB_KEYSYM_CASE_INSENSITIVE));
    if (symbol == XKB_KEY_NoSymbol) {
        return std::nullopt;
    }
    return Accelerator{{symbol, symbol}, modifiers};
}

} // namespace quorvantel::platform
