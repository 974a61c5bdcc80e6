#include "platform/linux/x11/BaseSymbol.h"

#include "platform/linux/x11/Xkb.h"

#include <cstddef>
#include <span>

namespace quorvantel::platform {

namespace {

using KeyboardMap = XcbPointer<xcb_xkb_get_map_reply_t>;

/// The symbols of one key; null when the server cannot say.
KeyboardMap readKey(xcb_connection_t* connection, xcb_keycode_t key) {
    const auto* const extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0) {
        return nullptr;
    }
    // The extension is to be greeted before its use.
    xcb_discard_reply(
        connection,
        xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION).sequence);
    const auto request =
        xcb_xkb_get_map(connection, XCB_XKB_ID_USE_CORE_KBD, 0, XCB_XKB_MAP_PART_KEY_SYMS, 0, 0,
                        key, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    return KeyboardMap(xcb_xkb_get_map_reply(connection, request, nullptr));
}

const xcb_xkb_key_sym_map_t* symbolsOf(const xcb_xkb_get_map_reply_t& map) {
    xcb_xkb_get_map_map_t values{};
    xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(&map), map.nTypes, map.nKeySyms, map.nKeyActions,
                               map.totalActions, map.totalKeyBehaviors, map.virtualMods,
                               map.totalKeyExplicit, map.totalModMapKeys, map.totalVModMapKeys,
                               map.present, &values);
    return map.nKeySyms == 0 ? nullptr : values.syms_rtrn;
}

} // namespace

std::optional<xcb_keysym_t> baseSymbol(const X11Display& display, xcb_keycode_t key,
                                       unsigned int group) {
    constexpr unsigned int groupCountMask = 0xF;
    const KeyboardMap map = readKey(display.connection, key);
    const auto* const entry = map ? symbolsOf(*map) : nullptr;
    if (entry == nullptr || entry->nSyms == 0) {
        return std::nullopt;
    }
    const std::span symbols(xcb_xkb_key_sym_map_syms(entry), entry->nSyms);
    const std::size_t groups = entry->groupInfo & groupCountMask;
    const std::size_t width = entry->width;
    const xcb_keysym_t own = symbols[group % groups * width];
    if (isLatin1(own)) {
        return own;
    }
    for (std::size_t other = 0; other < groups; ++other) {
        if (isLatin1(symbols[other * width])) {
            return symbols[other * width];
        }
    }
    return own;
}

} // namespace quorvantel::platform
