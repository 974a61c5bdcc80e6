#include "markdown/NodeText.h"

#include "markdown/CmarkIterator.h"

namespace quorvantel::markdown {

namespace {

/// The text without the characters that stand for structure in a document.
QString plain(QString text) {
    for (QChar& character : text) {
        const char16_t code = character.unicode();
        if (code == u'\n' || code == u'\r' || code == QChar::ParagraphSeparator) {
            character = QChar::LineSeparator;
        } else if (code == 0xFDD0 || code == 0xFDD1 || code == QChar::ObjectReplacementCharacter) {
            character = QChar::ReplacementCharacter;
        }
    }
    return text;
}

QString rawLiteral(cmark_node* node) {
    return QString::fromUtf8(cmark_node_get_literal(node));
}

} // namespace

bool isKind(cmark_node* node, QByteArrayView name) {
    return name == cmark_node_get_type_string(node);
}

QString literalOf(cmark_node* node) {
    return plain(rawLiteral(node));
}

QString blockLiteralOf(cmark_node* node) {
    QString text = rawLiteral(node);
    while (text.endsWith(u'\n')) {
        text.chop(1);
    }
    return plain(text);
}

QString textOf(cmark_node* node) {
    QString text;
    const CmarkIterator iterator(cmark_iter_new(node));
    while (cmark_iter_next(iterator.get()) != CMARK_EVENT_DONE) {
        cmark_node* const part = cmark_iter_get_node(iterator.get());
        const cmark_node_type type = cmark_node_get_type(part);
        if (type == CMARK_NODE_TEXT || type == CMARK_NODE_CODE) {
            text += literalOf(part);
        } else if (type == CMARK_NODE_SOFTBREAK || type == CMARK_NODE_LINEBREAK) {
            text += u' ';
        }
    }
    return text;
}

} // namespace quorvantel::markdown
