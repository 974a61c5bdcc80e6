#pragma once

#include <QByteArrayView>
#include <QString>

struct cmark_node;

namespace quorvantel::markdown {

/// Whether a node is of a kind, by the name that cmark-gfm gives it: the kinds that its extensions
/// bring have no number at compile time.
bool isKind(cmark_node* node, QByteArrayView name);

/// The text of a leaf, without the characters that stand for structure in a document.
QString literalOf(cmark_node* node);

/// The same of a block, without the line end that closes it.
QString blockLiteralOf(cmark_node* node);

/// The text of everything in a node, without its styles.
QString textOf(cmark_node* node);

} // namespace quorvantel::markdown
