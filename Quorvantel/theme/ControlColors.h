#pragma once

#include "theme/ResolvedTheme.h"

namespace quorvantel {

/// The colours of the settings window's own controls where the palette's are too faint to read or
/// to aim at. Opaque; good on both backgrounds of a theme and on its selections there.
struct ControlColors {
    /// Texts that can be clicked, focus rings and marks of what is selected or at work.
    ThemeColor accent;
    /// Placeholders and symbols.
    ThemeColor secondary;
    /// What tells that something is wrong.
    ThemeColor warning;
    /// The border of a field.
    ThemeColor outline;
    /// A focus ring on the palette's accent.
    ThemeColor onAccent;
};

/// The colours for a theme: texts reach a contrast of 4.5, outlines one of 3.
ControlColors controlColors(const ResolvedTheme& theme);

} // namespace quorvantel
