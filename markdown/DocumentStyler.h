#pragma once

#include "markdown/MarkdownStyle.h"

#include <QTextDocument>
#include <QTextTable>

namespace quorvantel::markdown {

/// Makes formats look like what their roles say, in one style.
class DocumentStyler {
public:
    explicit DocumentStyler(const MarkdownStyle& style);

    /// Sets what holds for the whole document: font, margin and indentation.
    void styleWhole(QTextDocument& document) const;

    /// Styles a format by the `TextRole` flags in it. `headingLevel` is 0 outside headings.
    void style(QTextCharFormat& format, int headingLevel) const;

    /// Styles a format by the `BlockRole` in it.
    void style(QTextBlockFormat& format) const;

    /// Styles a table and its cells by the `FrameRole` in its format.
    void style(QTextTable& table) const;

    /// Styles everything in a document anew. Its text stays as it is.
    void restyle(QTextDocument& document) const;

private:
    double bodySize() const;
    double em(double factor) const { return factor * m_lineUnit; }
    void setSize(QFont& font, double factor) const;
    QTextTableCellFormat cellFormat(const QTextTable& table, int row, int column) const;

    MarkdownStyle m_style;
    /// The height of the body font in points, from which all spacing follows.
    double m_lineUnit;
};

} // namespace quorvantel::markdown
