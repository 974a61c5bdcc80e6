#pragma once

#include "theme/ResolvedTheme.h"

namespace quorvantel {

/// A palette for users who asked for more contrast: its texts reach a contrast of 7 with everything
/// that they are drawn on (Web Content Accessibility Guidelines 2.1, criterion 1.4.6), its lines
/// and its accent one of 3. The backgrounds stay.
ResolvedTheme withHigherContrast(ColorScheme scheme, ResolvedTheme theme);

} // namespace quorvantel
