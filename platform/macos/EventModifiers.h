#pragma once

#include <cstdint>

namespace quorvantel::platform {

/// The mask of `HotKeyModifier` bits for the modifier flags of an event (`NSEventModifierFlags`).
/// All other flags, such as those of Caps Lock, the Function key and the number pad, are dropped.
std::uint32_t hotKeyModifiers(std::uint64_t eventFlags);

} // namespace quorvantel::platform
