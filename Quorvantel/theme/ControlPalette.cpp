#include "theme/ControlPalette.h"

#include "theme/Contrast.h"

namespace quorvantel {

QPalette controlPalette(const ResolvedTheme& theme) {
    QPalette palette(theme.secondaryBackground.toQColor(), theme.primaryBackground.toQColor());
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, theme.primaryText.toQColor());
        palette.setColor(QPalette::Disabled, role, theme.tertiaryText.toQColor());
    }
    palette.setColor(QPalette::PlaceholderText, theme.placeholderText.toQColor());
    palette.setColor(QPalette::Base, theme.primaryBackground.toQColor());
    palette.setColor(QPalette::Highlight, theme.accent.toQColor());
    palette.setColor(
        QPalette::HighlightedText,
        mostLegible({theme.primaryText, theme.primaryBackground}, theme.accent).toQColor());
    palette.setColor(QPalette::ToolTipBase, theme.elevatedBackground.toQColor());
    palette.setColor(QPalette::ToolTipText, theme.primaryText.toQColor());
    return palette;
}

} // namespace quorvantel
