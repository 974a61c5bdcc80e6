#pragma once

#include <QHash>
#include <QString>
#include <QTextBlock>

namespace quorvantel::markdown {

/// Makes the headings of one document anchors, named by their words like "getting-started". A name
/// that an earlier heading has is followed by a number: "notes", "notes-1", "notes-2".
class HeadingAnchors {
public:
    /// Makes a heading an anchor, unless its block is empty or there are very many already.
    /// `text` is the heading's text without its styles.
    void add(const QTextBlock& heading, const QString& text);

private:
    QString nameFor(const QString& text);

    /// How many headings have each name, not counting the numbers that tell them apart.
    QHash<QString, int> m_names;
    int m_count = 0;
};

} // namespace quorvantel::markdown
