#pragma once

#include "markdown/BlockWriter.h"
#include "markdown/CmarkTree.h"
#include "markdown/DocumentStyler.h"
#include "markdown/HeadingAnchors.h"
#include "markdown/InlineBuilder.h"
#include "markdown/TextWriter.h"

#include <QTextDocument>
#include <QUrl>

namespace quorvantel::markdown {

/// Writes a syntax tree into an empty document. Used once.
class DocumentBuilder {
public:
    /// The document and the styler must outlive the builder.
    DocumentBuilder(QTextDocument& document, const QUrl& baseUrl, const DocumentStyler& styler);

    /// `isTruncated` asks for the remark that something was left out.
    void build(const CmarkTree& tree, bool isTruncated);

private:
    void enter(cmark_node* node);
    void exit(cmark_node* node);
    void openList(cmark_node* node);
    void openItem(cmark_node* node);
    void startHeading(cmark_node* node);
    void endHeading(cmark_node* node);
    void enterPartOfTable(cmark_node* node);

    TextWriter m_text;
    BlockWriter m_blocks;
    InlineBuilder m_inlines;
    HeadingAnchors m_anchors;
    int m_tableRow = -1;
    int m_tableColumn = 0;
};

} // namespace quorvantel::markdown
