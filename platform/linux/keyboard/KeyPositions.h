#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvantel::platform {

/// The name that the X Keyboard Extension gives the key at the physical position of a virtual key
/// code, such as "AC01" for 0 (A on a US keyboard); absent for a code without a known position.
std::optional<std::string_view> keyNameForVirtualKey(std::uint32_t keyCode);

/// The virtual key code of a key position; absent for a key that has none.
std::optional<std::uint32_t> virtualKeyForKeyName(std::string_view keyName);

} // namespace quorvantel::platform
