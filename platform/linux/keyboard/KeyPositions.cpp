#include "platform/linux/keyboard/KeyPositions.h"

#include <algorithm>
#include <array>

namespace quorvantel::platform {

namespace {

struct KeyPosition {
    std::uint32_t keyCode;
    std::string_view name;
};

// Rows as on the keyboard, then the number pad, then what only some keyboards have. The names are
// those of the "evdev" key codes of xkeyboard-config.
constexpr std::array keyPositions{
    KeyPosition{53, "ESC"},   KeyPosition{122, "FK01"}, KeyPosition{120, "FK02"},
    KeyPosition{99, "FK03"},  KeyPosition{118, "FK04"}, KeyPosition{96, "FK05"},
    KeyPosition{97, "FK06"},  KeyPosition{98, "FK07"},  KeyPosition{100, "FK08"},
    KeyPosition{101, "FK09"}, KeyPosition{109, "FK10"}, KeyPosition{103, "FK11"},
    KeyPosition{111, "FK12"}, KeyPosition{105, "FK13"}, KeyPosition{107, "FK14"},
    KeyPosition{113, "FK15"}, KeyPosition{106, "FK16"}, KeyPosition{64, "FK17"},
    KeyPosition{79, "FK18"},  KeyPosition{80, "FK19"},  KeyPosition{90, "FK20"},

    KeyPosition{50, "TLDE"},  KeyPosition{18, "AE01"},  KeyPosition{19, "AE02"},
    KeyPosition{20, "AE03"},  KeyPosition{21, "AE04"},  KeyPosition{23, "AE05"},
    KeyPosition{22, "AE06"},  KeyPosition{26, "AE07"},  KeyPosition{28, "AE08"},
    KeyPosition{25, "AE09"},  KeyPosition{29, "AE10"},  KeyPosition{27, "AE11"},
    KeyPosition{24, "AE12"},  KeyPosition{51, "BKSP"},

    KeyPosition{48, "TAB"},   KeyPosition{12, "AD01"},  KeyPosition{13, "AD02"},
    KeyPosition{14, "AD03"},  KeyPosition{15, "AD04"},  KeyPosition{17, "AD05"},
    KeyPosition{16, "AD06"},  KeyPosition{32, "AD07"},  KeyPosition{34, "AD08"},
    KeyPosition{31, "AD09"},  KeyPosition{35, "AD10"},  KeyPosition{33, "AD11"},
    KeyPosition{30, "AD12"},  KeyPosition{42, "BKSL"},

    KeyPosition{0, "AC01"},   KeyPosition{1, "AC02"},   KeyPosition{2, "AC03"},
    KeyPosition{3, "AC04"},   KeyPosition{5, "AC05"},   KeyPosition{4, "AC06"},
    KeyPosition{38, "AC07"},  KeyPosition{40, "AC08"},  KeyPosition{37, "AC09"},
    KeyPosition{41, "AC10"},  KeyPosition{39, "AC11"},  KeyPosition{36, "RTRN"},

    KeyPosition{6, "AB01"},   KeyPosition{7, "AB02"},   KeyPosition{8, "AB03"},
    KeyPosition{9, "AB04"},   KeyPosition{11, "AB05"},  KeyPosition{45, "AB06"},
    KeyPosition{46, "AB07"},  KeyPosition{43, "AB08"},  KeyPosition{47, "AB09"},
    KeyPosition{44, "AB10"},  KeyPosition{49, "SPCE"},

    KeyPosition{115, "HOME"}, KeyPosition{116, "PGUP"}, KeyPosition{117, "DELE"},
    KeyPosition{119, "END"},  KeyPosition{121, "PGDN"}, KeyPosition{123, "LEFT"},
    KeyPosition{124, "RGHT"}, KeyPosition{125, "DOWN"}, KeyPosition{126, "UP"},

    KeyPosition{75, "KPDV"},  KeyPosition{67, "KPMU"},  KeyPosition{78, "KPSU"},
    KeyPosition{69, "KPAD"},  KeyPosition{76, "KPEN"},  KeyPosition{81, "KPEQ"},
    KeyPosition{65, "KPDL"},  KeyPosition{82, "KP0"},   KeyPosition{83, "KP1"},
    KeyPosition{84, "KP2"},   KeyPosition{85, "KP3"},   KeyPosition{86, "KP4"},
    KeyPosition{87, "KP5"},   KeyPosition{88, "KP6"},   KeyPosition{89, "KP7"},
    KeyPosition{91, "KP8"},   KeyPosition{92, "KP9"},   KeyPosition{10, "LSGT"},
    KeyPosition{114, "INS"},  KeyPosition{110, "COMP"}, KeyPosition{74, "MUTE"},
    KeyPosition{73, "VOL-"},  KeyPosition{72, "VOL+"},
};

} // namespace

std::optional<std::string_view> keyNameForVirtualKey(std::uint32_t keyCode) {
    const auto* const found = std::ranges::find(keyPositions, keyCode, &KeyPosition::keyCode);
    if (found == keyPositions.end()) {
        return std::nullopt;
    }
    return found->name;
}

std::optional<std::uint32_t> virtualKeyForKeyName(std::string_view keyName) {
    const auto* const found = std::ranges::find(keyPositions, keyName, &KeyPosition::name);
    if (found == keyPositions.end()) {
        return std::nullopt;
    }
    return found->keyCode;
}

} // namespace quorvantel::platform
