#pragma once

#include "help/HelpStyle.h"
#include "theme/ResolvedTheme.h"

namespace quorvantel {

/// The help window's colours in a palette of the launcher.
help::HelpStyle helpStyleFor(const ResolvedTheme& theme);

} // namespace quorvantel
