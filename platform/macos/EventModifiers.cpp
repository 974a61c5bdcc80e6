#include "platform/macos/EventModifiers.h"

#include "platform/GlobalHotKeys.h"

#include <array>

namespace quorvantel::platform {

namespace {

struct Modifier {
    std::uint64_t eventFlag;
    std::uint32_t hotKeyBit;
};

constexpr std::array modifiers{
    Modifier{1U << 17U, HotKeyModifier::shift},
    Modifier{1U << 18U, HotKeyModifier::control},
    Modifier{1U << 19U, HotKeyModifier::option},
    Modifier{1U << 20U, HotKeyModifier::command},
};

} // namespace

std::uint32_t hotKeyModifiers(std::uint64_t eventFlags) {
    std::uint32_t mask = 0;
    for (const Modifier& modifier : modifiers) {
        if ((eventFlags & modifier.eventFlag) != 0) {
            mask |= modifier.hotKeyBit;
        }
    }
    return mask;
}

} // namespace quorvantel::platform
