#pragma once

#include <QColor>

namespace quorvantel::help {

/// The colours of the help window, which the host takes from its own theme.
///
/// Fonts are not part of it: the window follows the application's font.
struct HelpStyle {
    /// Behind a topic's text. Opaque.
    QColor background;
    /// Behind the list of topics. Opaque.
    QColor sidebarBackground;
    /// Behind the search field. Opaque.
    QColor fieldBackground;
    QColor text;
    /// Snippets, group titles and placeholders.
    QColor secondaryText;
    /// Hairlines and borders.
    QColor separator;
    /// Links, the focus ring and what is behind selected text.
    QColor accent;
    /// Text that is selected, on the accent.
    QColor selectedText;
    /// Behind the row of the topic that is shown.
    QColor selectionFill;
    /// Behind the row under the mouse.
    QColor hoverFill;
    /// Behind code, quotations and table headers.
    QColor tintedBackground;
    /// Behind words that a search found.
    QColor matchFill;

    friend bool operator==(const HelpStyle&, const HelpStyle&) = default;
};

} // namespace quorvantel::help
