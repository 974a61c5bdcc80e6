#include "markdown/MarkdownRenderer.h"

#include "markdown/CmarkTree.h"
#include "markdown/DocumentBuilder.h"
#include "markdown/DocumentStyler.h"
#include "markdown/InputGuard.h"

namespace quorvantel::markdown {

std::unique_ptr<QTextDocument> renderMarkdown(const QByteArray& text, const QUrl& baseUrl,
                                              const MarkdownStyle& style) {
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    const DocumentStyler styler(style);
    styler.styleWhole(*document);
    const GuardedInput input = guardInput(text);
    const CmarkTree tree(input.text);
    DocumentBuilder(*document, baseUrl, styler).build(tree, input.isTruncated);
    return document;
}

void restyleMarkdown(QTextDocument& document, const MarkdownStyle& style) {
    DocumentStyler(style).restyle(document);
}

} // namespace quorvantel::markdown
