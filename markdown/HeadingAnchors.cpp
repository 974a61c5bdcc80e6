#include "markdown/HeadingAnchors.h"

#include <QTextCursor>

namespace quorvantel::markdown {

namespace {

/// The document looks up formats in time linear in the number of different anchors.
constexpr int maximumAnchors = 300;

} // namespace

void HeadingAnchors::add(const QTextBlock& heading, const QString& text) {
    QTextCursor cursor(heading);
    if (cursor.atBlockEnd() || m_count >= maximumAnchors) {
        return;
    }
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    QTextCharFormat anchor;
    anchor.setAnchor(true);
    anchor.setAnchorNames({nameFor(text)});
    cursor.mergeCharFormat(anchor);
    ++m_count;
}

QString HeadingAnchors::nameFor(const QString& text) {
    QString base;
    for (const QChar character : text.toLower()) {
        if (character.isLetterOrNumber() || character == u'-' || character == u'_') {
            base += character;
        } else if (character == u' ') {
            base += u'-';
        }
    }
    const int earlier = m_names[base]++;
    return earlier == 0 ? base : base + u'-' + QString::number(earlier);
}

} // namespace quorvantel::markdown
