#pragma once

#include "theme/ThemeColor.h"

namespace quorvantel {

/// Whether the surroundings are light or dark.
enum class ColorScheme { Light, Dark };

/// The families of colours.
enum class ThemePreset { Graphite, Teal, Ink, Paper, Glass };

/// The palette that every view of the launcher draws with.
struct ResolvedTheme {
    ThemeColor primaryBackground;
    ThemeColor secondaryBackground;
    ThemeColor elevatedBackground;
    ThemeColor primaryText;
    ThemeColor secondaryText;
    ThemeColor tertiaryText;
    ThemeColor placeholderText;
    ThemeColor separator;
    ThemeColor accent;
    ThemeColor selectionFill;
    ThemeColor selectionRing;
    ThemeColor hoverFill;
    ThemeColor panelBorder;
    ThemeColor glassTint;
    ThemeColor glassBorder;
    /// The panel shows what is behind it, blurred and tinted with `glassTint`.
    bool isGlass = false;

    friend bool operator==(const ResolvedTheme&, const ResolvedTheme&) = default;
};

/// The palette for a scheme and a preset.
ResolvedTheme resolve(ColorScheme scheme, ThemePreset preset);

} // namespace quorvantel
