#include "markdown/DocumentBuilder.h"

#include "markdown/CmarkIterator.h"
#include "markdown/DocumentImages.h"
#include "markdown/NodeText.h"
#include "markdown/TextRole.h"

#include <QAbstractTextDocumentLayout>

#include <cmark-gfm-core-extensions.h>

#include <algorithm>

namespace quorvantel::markdown {

namespace {

/// The images of a document, which owns them and draws them.
DocumentImages& imagesOf(QTextDocument& document, const QUrl& baseUrl) {
    auto* const images = new DocumentImages(baseUrl, &document);
    document.documentLayout()->registerHandler(DocumentImages::objectType, images);
    return *images;
}

bool isTableRow(cmark_node* node) {
    return isKind(node, "table_header") || isKind(node, "table_row");
}

int numberOfRows(cmark_node* table) {
    int rows = 0;
    for (cmark_node* row = cmark_node_first_child(table); row != nullptr;
         row = cmark_node_next(row)) {
        ++rows;
    }
    return rows;
}

Qt::Alignment alignmentOf(cmark_node* table, int column) {
    const uint8_t* const alignments = cmark_gfm_extensions_get_table_alignments(table);
    const char alignment = alignments == nullptr ? '\0' : static_cast<char>(alignments[column]);
    return alignment == 'c' ? Qt::AlignHCenter : alignment == 'r' ? Qt::AlignRight : Qt::AlignLeft;
}

} // namespace

DocumentBuilder::DocumentBuilder(QTextDocument& document, const QUrl& baseUrl,
                                 const DocumentStyler& styler)
    : m_text(document, styler),
      m_blocks(m_text, styler),
      m_inlines(m_text, imagesOf(document, baseUrl)) {}

void DocumentBuilder::build(const CmarkTree& tree, bool isTruncated) {
    m_text.cursor().beginEditBlock();
    const CmarkIterator iterator(cmark_iter_new(tree.root()));
    cmark_event_type event = CMARK_EVENT_NONE;
    while (!m_blocks.isExhausted() &&
           (event = cmark_iter_next(iterator.get())) != CMARK_EVENT_DONE) {
        cmark_node* const node = cmark_iter_get_node(iterator.get());
        if (event == CMARK_EVENT_EXIT) {
            exit(node);
            continue;
        }
        enter(node);
        if (cmark_node_get_type(node) == CMARK_NODE_IMAGE) {
            cmark_iter_reset(iterator.get(), node, CMARK_EVENT_EXIT);
        }
    }
    if (isTruncated || m_blocks.isExhausted()) {
        m_blocks.addRemark();
    }
    m_text.cursor().endEditBlock();
}

void DocumentBuilder::enter(cmark_node* node) {
    if (m_inlines.enter(node)) {
        return;
    }
    switch (cmark_node_get_type(node)) {
    case CMARK_NODE_PARAGRAPH:
        m_blocks.start(BlockRole::Paragraph);
        break;
    case CMARK_NODE_HEADING:
        startHeading(node);
        break;
    case CMARK_NODE_BLOCK_QUOTE:
        m_blocks.openQuotation();
        m_text.pushRole(TextRole::quotation);
        break;
    case CMARK_NODE_LIST:
        openList(node);
        break;
    case CMARK_NODE_ITEM:
        openItem(node);
        break;
    case CMARK_NODE_CODE_BLOCK:
        m_blocks.addCode(blockLiteralOf(node));
        break;
    case CMARK_NODE_HTML_BLOCK:
        m_blocks.start(BlockRole::Paragraph);
        m_text.insert(blockLiteralOf(node));
        break;
    case CMARK_NODE_THEMATIC_BREAK:
        m_blocks.addRule();
        break;
    default:
        enterPartOfTable(node);
    }
}

void DocumentBuilder::exit(cmark_node* node) {
    switch (cmark_node_get_type(node)) {
    case CMARK_NODE_HEADING:
        endHeading(node);
        break;
    case CMARK_NODE_BLOCK_QUOTE:
        m_blocks.closeFrame();
        m_text.popRole();
        break;
    case CMARK_NODE_LIST:
        m_blocks.closeList();
        break;
    case CMARK_NODE_ITEM:
        m_blocks.closeItem();
        break;
    default:
        if (isKind(node, "table")) {
            m_blocks.closeFrame();
        } else if (isTableRow(node)) {
            m_text.popRole();
        } else {
            m_inlines.exit(node);
        }
    }
}

void DocumentBuilder::openList(cmark_node* node) {
    const bool isOrdered = cmark_node_get_list_type(node) == CMARK_ORDERED_LIST;
    const bool endsWithParenthesis = cmark_node_get_list_delim(node) == CMARK_PAREN_DELIM;
    m_blocks.openList({isOrdered, cmark_node_get_list_tight(node) != 0,
                       isOrdered ? cmark_node_get_list_start(node) : 1,
                       endsWithParenthesis ? QStringLiteral(")") : QStringLiteral(".")});
}

void DocumentBuilder::openItem(cmark_node* node) {
    if (!isKind(node, "tasklist")) {
        m_blocks.openItem(QTextBlockFormat::MarkerType::NoMarker);
        return;
    }
    m_blocks.openItem(cmark_gfm_extensions_get_tasklist_item_checked(node)
                          ? QTextBlockFormat::MarkerType::Checked
                          : QTextBlockFormat::MarkerType::Unchecked);
}

void DocumentBuilder::startHeading(cmark_node* node) {
    const int level = cmark_node_get_heading_level(node);
    m_text.setHeadingLevel(level);
    QTextBlockFormat format;
    format.setHeadingLevel(level);
    m_blocks.start(BlockRole::Heading, format);
}

void DocumentBuilder::endHeading(cmark_node* node) {
    m_anchors.add(m_text.cursor().block(), textOf(node));
    m_text.setHeadingLevel(0);
}

void DocumentBuilder::enterPartOfTable(cmark_node* node) {
    if (isKind(node, "table")) {
        m_tableRow = -1;
        m_blocks.openTable(numberOfRows(node),
                           std::max<int>(1, cmark_gfm_extensions_get_table_columns(node)));
    } else if (isTableRow(node)) {
        ++m_tableRow;
        m_tableColumn = 0;
        m_text.pushRole(isKind(node, "table_header") ? TextRole::tableHeader : 0);
    } else if (isKind(node, "table_cell")) {
        cmark_node* const table = cmark_node_parent(cmark_node_parent(node));
        m_blocks.startCell(m_tableRow, m_tableColumn, alignmentOf(table, m_tableColumn));
        ++m_tableColumn;
    }
}

} // namespace quorvantel::markdown
