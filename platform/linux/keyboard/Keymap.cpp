#include "platform/linux/keyboard/Keymap.h"

#include "platform/linux/keyboard/KeyPositions.h"
#include "platform/linux/keyboard/KeySymbols.h"

#include <cstdlib>

namespace quorvantel::platform {

namespace {

std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> makeContext() {
    return {xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref};
}

/// The whole key map in the text format of XKB.
std::string textOf(xkb_keymap* keymap) {
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    return text ? text.get() : std::string();
}

/// The real modifiers that hold, or are locked, once the key is pressed.
std::uint16_t modifiersSetBy(xkb_keymap* keymap, xkb_keycode_t key) {
    const std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> state(xkb_state_new(keymap),
                                                                       &xkb_state_unref);
    xkb_state_update_key(state.get(), key, XKB_KEY_DOWN);
    return static_cast<std::uint16_t>(
        xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE) & KeyModifiers::all);
}

} // namespace

Keymap::Keymap(xkb_keymap* keymap) {
    if (keymap != nullptr) {
        m_keymap.reset(keymap, &xkb_keymap_unref);
        m_modifiers = readModifiers();
    }
}

bool operator==(const Keymap& one, const Keymap& other) {
    if (!one.m_keymap || !other.m_keymap) {
        return one.m_keymap == other.m_keymap;
    }
    return textOf(one.m_keymap.get()) == textOf(other.m_keymap.get());
}

Keymap Keymap::us() {
    const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
    return Keymap(
        xkb_keymap_new_from_names(makeContext().get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::optional<Keymap> Keymap::fromText(const std::string& text) {
    xkb_keymap* const keymap = xkb_keymap_new_from_string(
        makeContext().get(), text.c_str(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS);
    return keymap == nullptr ? std::nullopt : std::optional(Keymap(keymap));
}

std::optional<xkb_keycode_t> Keymap::keyAt(std::uint32_t virtualKey) const {
    const auto name = keyNameForVirtualKey(virtualKey);
    if (!m_keymap || !name) {
        return std::nullopt;
    }
    const xkb_keycode_t key = xkb_keymap_key_by_name(m_keymap.get(), std::string(*name).c_str());
    return key == XKB_KEYCODE_INVALID ? std::nullopt : std::optional(key);
}

xkb_keysym_t Keymap::symbol(xkb_keycode_t key, unsigned int layout, bool isShifted) const {
    if (!m_keymap) {
        return XKB_KEY_NoSymbol;
    }
    const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(m_keymap.get(), key, layout);
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, layout,
                                                       isShifted && levels > 1 ? 1 : 0, &symbols);
    return count == 1 ? *symbols : xkb_keysym_t{XKB_KEY_NoSymbol};
}

std::optional<xkb_keysym_t> Keymap::baseSymbol(xkb_keycode_t key, unsigned int layout) const {
    const xkb_keysym_t own = symbol(key, layout, false);
    if (isLatin1(own)) {
        return own;
    }
    const xkb_layout_index_t layouts =
        m_keymap ? xkb_keymap_num_layouts_for_key(m_keymap.get(), key) : 0;
    for (xkb_layout_index_t other = 0; other < layouts; ++other) {
        if (const xkb_keysym_t latin = symbol(key, other, false); isLatin1(latin)) {
            return latin;
        }
    }
    return own == XKB_KEY_NoSymbol ? std::nullopt : std::optional(own);
}

std::optional<KeyPress> Keymap::press(xkb_keycode_t key, std::uint32_t state) const {
    const xkb_keysym_t meaning = symbol(key, 0, false);
    if (isModifierSymbol(meaning) && meaning != XKB_KEY_Num_Lock) {
        return std::nullopt;
    }
    KeyPress press{std::nullopt, m_modifiers.carbonModifiers(state)};
    const char* const name = m_keymap ? xkb_keymap_key_get_name(m_keymap.get(), key) : nullptr;
    if (name != nullptr) {
        press.keyCode = virtualKeyForKeyName(name);
    }
    return press;
}

KeyModifiers Keymap::readModifiers() const {
    KeyModifiers modifiers;
    const auto read = [&](std::uint16_t& mask, xkb_keycode_t key) {
        if (const std::uint16_t set = modifiersSetBy(m_keymap.get(), key); set != 0) {
            mask = set;
        }
    };
    // From the last to the first, since the first of several such keys counts.
    const xkb_keycode_t first = xkb_keymap_min_keycode(m_keymap.get());
    for (xkb_keycode_t key = xkb_keymap_max_keycode(m_keymap.get()) + 1; key-- > first;) {
        switch (symbol(key, 0, false)) {
        case XKB_KEY_Super_L:
        case XKB_KEY_Super_R:
            read(modifiers.superMask, key);
            break;
        case XKB_KEY_Alt_L:
        case XKB_KEY_Alt_R:
            read(modifiers.altMask, key);
            break;
        case XKB_KEY_Num_Lock:
            read(modifiers.numLockMask, key);
            break;
        case XKB_KEY_Scroll_Lock:
            read(modifiers.scrollLockMask, key);
            break;
        default:
            break;
        }
    }
    return modifiers;
}

} // namespace quorvantel::platform
