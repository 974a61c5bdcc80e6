#include "hotkey/HotKeyBinding.h"

#include <algorithm>
#include <array>
#include <functional>

namespace quorvantel {

namespace {

struct KeyName {
    std::uint32_t keyCode;
    QStringView name;
};

constexpr std::array keyNames{
    KeyName{0, u"A"},      KeyName{1, u"S"},      KeyName{2, u"D"},      KeyName{3, u"F"},
    KeyName{4, u"H"},      KeyName{5, u"G"},      KeyName{6, u"Z"},      KeyName{7, u"X"},
    KeyName{8, u"C"},      KeyName{9, u"V"},      KeyName{11, u"B"},     KeyName{12, u"Q"},
    KeyName{13, u"W"},     KeyName{14, u"E"},     KeyName{15, u"R"},     KeyName{16, u"Y"},
    KeyName{17, u"T"},     KeyName{18, u"1"},     KeyName{19, u"2"},     KeyName{20, u"3"},
    KeyName{21, u"4"},     KeyName{22, u"6"},     KeyName{23, u"5"},     KeyName{24, u"="},
    KeyName{25, u"9"},     KeyName{26, u"7"},     KeyName{27, u"-"},     KeyName{28, u"8"},
    KeyName{29, u"0"},     KeyName{30, u"]"},     KeyName{31, u"O"},     KeyName{32, u"U"},
    KeyName{33, u"["},     KeyName{34, u"I"},     KeyName{35, u"P"},     KeyName{36, u"Return"},
    KeyName{37, u"L"},     KeyName{38, u"J"},     KeyName{39, u"'"},     KeyName{40, u"K"},
    KeyName{41, u";"},     KeyName{42, u"\\"},    KeyName{43, u","},     KeyName{44, u"/"},
    KeyName{45, u"N"},     KeyName{46, u"M"},     KeyName{47, u"."},     KeyName{48, u"Tab"},
    KeyName{49, u"Space"}, KeyName{50, u"`"},     KeyName{51, u"⌫"},     KeyName{53, u"Esc"},
    KeyName{64, u"F17"},   KeyName{79, u"F18"},   KeyName{80, u"F19"},   KeyName{90, u"F20"},
    KeyName{96, u"F5"},    KeyName{97, u"F6"},    KeyName{98, u"F7"},    KeyName{99, u"F3"},
    KeyName{100, u"F8"},   KeyName{101, u"F9"},   KeyName{103, u"F11"},  KeyName{105, u"F13"},
    KeyName{106, u"F16"},  KeyName{107, u"F14"},  KeyName{109, u"F10"},  KeyName{111, u"F12"},
    KeyName{113, u"F15"},  KeyName{115, u"Home"}, KeyName{116, u"PgUp"}, KeyName{117, u"⌦"},
    KeyName{118, u"F4"},   KeyName{119, u"End"},  KeyName{120, u"F2"},   KeyName{121, u"PgDn"},
    KeyName{122, u"F1"},   KeyName{123, u"←"},    KeyName{124, u"→"},    KeyName{125, u"↓"},
    KeyName{126, u"↑"},
};
static_assert(std::ranges::is_sorted(keyNames, std::less{}, &KeyName::keyCode));

struct ModifierSymbol {
    std::uint32_t mask;
    QChar symbol;
};

constexpr std::array modifierSymbols{
    ModifierSymbol{HotKeyModifier::control, u'⌃'},
    ModifierSymbol{HotKeyModifier::option, u'⌥'},
    ModifierSymbol{HotKeyModifier::shift, u'⇧'},
    ModifierSymbol{HotKeyModifier::command, u'⌘'},
};

} // namespace

QString virtualKeyName(std::uint32_t keyCode) {
    const auto* const found =
        std::ranges::lower_bound(keyNames, keyCode, std::less{}, &KeyName::keyCode);
    if (found != keyNames.end() && found->keyCode == keyCode) {
        return found->name.toString();
    }
    return QStringLiteral("key %1").arg(keyCode);
}

QString HotKeyBinding::displayText() const {
    QString text;
    for (const ModifierSymbol& modifier : modifierSymbols) {
        if ((modifiers & modifier.mask) != 0) {
            text += modifier.symbol;
        }
    }
    return text + virtualKeyName(keyCode);
}

} // namespace quorvantel
