#pragma once

#include "platform/linux/shortcuts/Accelerator.h"

#include <optional>

namespace quorvantel::platform {

/// The accelerator as a number of Qt's (`Qt::Key` and `Qt::KeyboardModifiers`), which is how KDE
/// names shortcuts; absent for a key that Qt has no name for.
///
/// It names what the key types: Shift with a key that is no letter is the character on its upper
/// half, without Shift.
std::optional<int> qtKeyOf(const Accelerator& accelerator);

} // namespace quorvantel::platform
