#include "markdown/MarkdownRenderer.h"

#include "markdown/CmarkTree.h"
#include "markdown/DocumentBuilder.h"
#include "markdown/DocumentStyler.h"

#include <algorithm>

namespace quorvantel::markdown {

namespace {

/// Many times what a topic of help has, and as much as can be parsed and laid out in no time.
constexpr qsizetype maximumSize = qsizetype{32} * 1024;

/// Up to `limit` bytes of the text, without half a character at the end.
QByteArray prefix(const QByteArray& text, qsizetype limit) {
    const auto isContinuation = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    qsizetype end = std::min(text.size(), limit);
    while (end < text.size() && end > limit - 4 && isContinuation(text[end])) {
        --end;
    }
    return text.first(end);
}

} // namespace

std::unique_ptr<QTextDocument> renderMarkdown(const QByteArray& text, const QUrl& baseUrl,
                                              const MarkdownStyle& style) {
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    const DocumentStyler styler(style);
    styler.styleWhole(*document);
    const CmarkTree tree(prefix(text, maximumSize));
    DocumentBuilder(*document, baseUrl, styler).build(tree, text.size() > maximumSize);
    return document;
}

void restyleMarkdown(QTextDocument& document, const MarkdownStyle& style) {
    DocumentStyler(style).restyle(document);
}

} // namespace quorvantel::markdown
