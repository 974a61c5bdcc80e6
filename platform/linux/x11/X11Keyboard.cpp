#include "platform/linux/x11/X11Keyboard.h"

#include "platform/GlobalHotKeys.h"
#include "platform/linux/x11/Xkb.h"

#include <X11/keysym.h>
#include <xcb/xcb_keysyms.h>

#include <algorithm>
#include <array>
#include <span>

namespace quorvantel::platform {

namespace {

using KeySymbols = std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)>;

std::string keyName(const xcb_xkb_key_name_t& entry) {
    // Four characters, padded with zeros.
    const std::string_view padded(entry.name, sizeof entry.name);
    return std::string(padded.substr(0, padded.find('\0')));
}

std::unordered_map<std::string, xcb_keycode_t> readKeyNames(xcb_connection_t* connection) {
    const XcbPointer<xcb_xkb_use_extension_reply_t> extension(xcb_xkb_use_extension_reply(
        connection, xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
    if (!extension || extension->supported == 0) {
        return {};
    }
    const XcbPointer<xcb_xkb_get_names_reply_t> reply(xcb_xkb_get_names_reply(
        connection,
        xcb_xkb_get_names(connection, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES),
        nullptr));
    if (!reply) {
        return {};
    }
    xcb_xkb_get_names_value_list_t values{};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(reply.get()), reply->nTypes,
                                        reply->indicators, reply->virtualMods, reply->groupNames,
                                        reply->nKeys, reply->nKeyAliases, reply->nRadioGroups,
                                        reply->which, &values);
    std::unordered_map<std::string, xcb_keycode_t> keyCodes;
    const std::span names(values.keyNames, reply->nKeys);
    for (std::size_t index = 0; index < names.size(); ++index) {
        std::string name = keyName(names[index]);
        if (!name.empty()) {
            keyCodes.try_emplace(std::move(name),
                                 static_cast<xcb_keycode_t>(reply->firstKey + index));
        }
    }
    return keyCodes;
}

/// What a key is by itself in the first group; modifier keys are the same in every group.
xcb_keysym_t symbolOf(xcb_key_symbols_t* symbols, xcb_keycode_t key) {
    return xcb_key_symbols_get_keysym(symbols, key, 0);
}

/// The modifier bits that the keys with one of these symbols set; 0 when there is no such key.
std::uint16_t maskOf(const xcb_get_modifier_mapping_reply_t& mapping, xcb_key_symbols_t* symbols,
                     std::span<const xcb_keysym_t> wanted) {
    const std::span keys(
        xcb_get_modifier_mapping_keycodes(&mapping),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(&mapping)));
    for (std::size_t index = 0; index < keys.size(); ++index) {
        const bool isWanted =
            std::ranges::find(wanted, symbolOf(symbols, keys[index])) != wanted.end();
        if (keys[index] != 0 && isWanted) {
            return static_cast<std::uint16_t>(1U << (index / mapping.keycodes_per_modifier));
        }
    }
    return 0;
}

std::unordered_set<xcb_keycode_t> modifierKeys(const xcb_setup_t& setup,
                                               xcb_key_symbols_t* symbols) {
    std::unordered_set<xcb_keycode_t> keys;
    for (unsigned int code = setup.min_keycode; code <= setup.max_keycode; ++code) {
        const auto key = static_cast<xcb_keycode_t>(code);
        const xcb_keysym_t symbol = symbolOf(symbols, key);
        if (symbol != XK_Num_Lock && xcb_is_modifier_key(symbol) != 0) {
            keys.insert(key);
        }
    }
    return keys;
}

void readModifiers(xcb_connection_t* connection, X11Keyboard& keyboard) {
    const XcbPointer<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    const KeySymbols symbols(xcb_key_symbols_alloc(connection), &xcb_key_symbols_free);
    if (!mapping || !symbols) {
        return;
    }
    keyboard.modifierKeys = modifierKeys(*xcb_get_setup(connection), symbols.get());
    const auto read = [&](std::uint16_t& mask, auto... keySymbols) {
        const std::array<xcb_keysym_t, sizeof...(keySymbols)> wanted{
            static_cast<xcb_keysym_t>(keySymbols)...};
        if (const std::uint16_t found = maskOf(*mapping, symbols.get(), wanted); found != 0) {
            mask = found;
        }
    };
    read(keyboard.superMask, XK_Super_L, XK_Super_R);
    read(keyboard.altMask, XK_Alt_L, XK_Alt_R);
    read(keyboard.numLockMask, XK_Num_Lock);
    read(keyboard.scrollLockMask, XK_Scroll_Lock);
}

} // namespace

X11Keyboard X11Keyboard::read(const X11Display& display) {
    X11Keyboard keyboard;
    keyboard.keyCodes = readKeyNames(display.connection);
    readModifiers(display.connection, keyboard);
    return keyboard;
}

std::uint16_t X11Keyboard::modifierBits(std::uint32_t carbonModifiers) const {
    unsigned int bits = 0;
    const auto add = [&](std::uint32_t carbon, unsigned int mask) {
        if ((carbonModifiers & carbon) != 0) {
            bits |= mask;
        }
    };
    add(HotKeyModifier::command, superMask);
    add(HotKeyModifier::shift, XCB_MOD_MASK_SHIFT);
    add(HotKeyModifier::option, altMask);
    add(HotKeyModifier::control, XCB_MOD_MASK_CONTROL);
    return static_cast<std::uint16_t>(bits);
}

std::vector<std::uint16_t> X11Keyboard::lockCombinations() const {
    std::vector<std::uint16_t> combinations{0};
    for (const std::uint16_t lock :
         {static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK), numLockMask, scrollLockMask}) {
        if (lock == 0) {
            continue;
        }
        const std::size_t count = combinations.size();
        for (std::size_t index = 0; index < count; ++index) {
            combinations.push_back(static_cast<std::uint16_t>(combinations[index] | lock));
        }
    }
    return combinations;
}

} // namespace quorvantel::platform
