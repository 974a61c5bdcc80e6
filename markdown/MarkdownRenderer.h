#pragma once

#include "markdown/MarkdownStyle.h"

#include <QByteArray>
#include <QTextDocument>
#include <QUrl>

#include <memory>

namespace quorvantel::markdown {

/// A styled document from Markdown text, in the GitHub Flavored Markdown dialect with its tables,
/// strikethrough, task lists and autolinks.
///
/// The text is UTF-8; what is not becomes the replacement character. Raw HTML is shown as the text
/// that it is. Images are read from below `baseUrl` (a directory's file URL, or a "qrc:" URL) and
/// from nowhere else; one that cannot be read shows its description. They are never wider than the
/// document's text. A link keeps its address only if that is relative, or http, https or mailto;
/// following links is up to the caller. Headings are anchors, named like "getting-started".
///
/// No text makes this fail, recurse deeply or run for long: what goes beyond 32 KiB or
/// some thousands of a table's cells is left out, with a remark at the end, a table of very many
/// columns is none, and what is nested very deeply is shown less deep.
///
/// The document can be shown by any text view. Undo is off. Main thread only.
std::unique_ptr<QTextDocument> renderMarkdown(const QByteArray& text, const QUrl& baseUrl,
                                              const MarkdownStyle& style);

/// Gives a document of `renderMarkdown` another style in place: text, selections and cursors stay.
void restyleMarkdown(QTextDocument& document, const MarkdownStyle& style);

} // namespace quorvantel::markdown
