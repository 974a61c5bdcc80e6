#pragma once

#include "platform/HotKeyState.h"

namespace quorvantel::platform {

/// What became of a hotkey, by the result code (`OSStatus`) of its registration with the Carbon
/// Event Manager.
HotKeyState hotKeyState(HotKeyStatus status);

} // namespace quorvantel::platform
