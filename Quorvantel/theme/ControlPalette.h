#pragma once

#include "theme/ResolvedTheme.h"

#include <QPalette>

namespace quorvantel {

/// The colours of a theme for the toolkit's own controls, such as text fields, menus, dialogs and
/// scroll bars.
QPalette controlPalette(const ResolvedTheme& theme);

} // namespace quorvantel
