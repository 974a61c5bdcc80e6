#include "platform/linux/keyboard/KeyModifiers.h"

#include "platform/GlobalHotKeys.h"

#include <cstddef>

namespace quorvantel::platform {

std::uint16_t KeyModifiers::bitsOf(std::uint32_t carbonModifiers) const {
    unsigned int bits = 0;
    const auto add = [&](std::uint32_t carbon, unsigned int mask) {
        if ((carbonModifiers & carbon) != 0) {
            bits |= mask;
        }
    };
    add(HotKeyModifier::command, superMask);
    add(HotKeyModifier::shift, shiftMask);
    add(HotKeyModifier::option, altMask);
    add(HotKeyModifier::control, controlMask);
    return static_cast<std::uint16_t>(bits);
}

std::uint32_t KeyModifiers::carbonModifiers(std::uint32_t state) const {
    std::uint32_t modifiers = 0;
    for (const std::uint32_t modifier : {HotKeyModifier::command, HotKeyModifier::shift,
                                         HotKeyModifier::option, HotKeyModifier::control}) {
        if ((state & bitsOf(modifier)) != 0) {
            modifiers |= modifier;
        }
    }
    return modifiers;
}

std::vector<std::uint16_t> KeyModifiers::lockCombinations() const {
    std::vector<std::uint16_t> combinations{0};
    for (const std::uint16_t lock : {capsLockMask, numLockMask, scrollLockMask}) {
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
