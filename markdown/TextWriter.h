#pragma once

#include "markdown/DocumentStyler.h"

#include <QTextCursor>

#include <tuple>
#include <vector>

namespace quorvantel::markdown {

/// Writes runs of characters into a document, in the format that the nodes around them ask for.
class TextWriter {
public:
    /// The document and the styler must outlive the writer.
    TextWriter(QTextDocument& document, const DocumentStyler& styler);

    /// Where the next characters go. Others move it to where they start a block.
    QTextCursor& cursor() { return m_cursor; }

    /// Adds flags of `TextRole` to those in force, until `popRole`.
    void pushRole(int role) { m_roles.push_back(m_roles.back() | role); }
    void popRole() { m_roles.pop_back(); }

    /// The address of the link that is being written; empty for none.
    void setLink(const QString& address) { m_link = address; }

    /// 0 outside headings.
    void setHeadingLevel(int level) { m_headingLevel = level; }

    /// Puts these flags of `TextRole` in force and no others, outside of links and headings.
    void reset(int role);

    void insert(const QString& text, int extraRole = 0);

    /// Inserts the one character that stands for an object, which `format` tells the type of.
    void insertObject(const QTextCharFormat& format);

    /// The format in force, with further flags of `TextRole`; valid until the next call.
    const QTextCharFormat& format(int extraRole = 0);

private:
    const DocumentStyler& m_styler;
    QTextCursor m_cursor;
    /// The flags in force, with those of the surrounding nodes below.
    std::vector<int> m_roles{0};
    QString m_link;
    int m_headingLevel = 0;
    /// The format made last, and what it was made for; most text has that of the text before.
    QTextCharFormat m_format;
    std::tuple<int, int, QString> m_formatKey{-1, 0, {}};
};

} // namespace quorvantel::markdown
