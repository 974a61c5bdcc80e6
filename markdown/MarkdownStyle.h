#pragma once

#include <QColor>
#include <QFont>

namespace quorvantel::markdown {

/// How rendered Markdown looks. All sizes follow from the size of `font`.
struct MarkdownStyle {
    /// Of running text. Headings are this font in other sizes.
    QFont font;
    /// Of code, inline and in blocks; its size counts too.
    QFont codeFont;
    QColor text;
    /// Quotations, and the description of an image that is missing.
    QColor secondaryText;
    QColor link;
    /// Rules, the lines of tables and the bar beside quotations.
    QColor rule;
    /// Behind code and table headers.
    QColor tintedBackground;
    /// Around the whole text, in points.
    double margin = 0;

    friend bool operator==(const MarkdownStyle&, const MarkdownStyle&) = default;
};

} // namespace quorvantel::markdown
