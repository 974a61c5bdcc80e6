#include "markdown/DocumentBuilder.h"

#include "markdown/CheckBoxes.h"
#include "markdown/TextRole.h"

#include <QAbstractTextDocumentLayout>
#include <QTextTable>

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>

#include <algorithm>

namespace quorvantel::markdown {

namespace {

constexpr int maximumBlocks = 8'000;
constexpr int maximumCells = 8'000;
/// A one-cell table costs the layout more than the cell of a larger one does.
constexpr int cellsPerFrame = 8;
constexpr int maximumIndent = 8;
/// The document looks up formats in time linear in the number of different anchors.
constexpr int maximumAnchors = 300;
constexpr qsizetype maximumAddress = 2'048;
/// Laying out a frame takes more than one pass over what is in it, so their depth counts.
constexpr std::size_t maximumFrameDepth = 4;
/// The largest number of a list's item in the dialect.
constexpr int maximumItemNumber = 999'999'999;

/// In a block without text. An empty block next to a table would be laid out beside it.
const QString blockKeeper(QChar(0x200B));

struct FreeIterator {
    void operator()(cmark_iter* iterator) const { cmark_iter_free(iterator); }
};

using Iterator = std::unique_ptr<cmark_iter, FreeIterator>;

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

QString literal(cmark_node* node) {
    return QString::fromUtf8(cmark_node_get_literal(node));
}

/// The literal of a block, without the line end that closes it.
QString blockLiteral(cmark_node* node) {
    QString text = literal(node);
    while (text.endsWith(u'\n')) {
        text.chop(1);
    }
    return plain(text);
}

bool isKind(cmark_node* node, QByteArrayView name) {
    return name == cmark_node_get_type_string(node);
}

/// The text of everything in a node, without its styles.
QString textOf(cmark_node* node) {
    QString text;
    const Iterator iterator(cmark_iter_new(node));
    while (cmark_iter_next(iterator.get()) != CMARK_EVENT_DONE) {
        cmark_node* const part = cmark_iter_get_node(iterator.get());
        const cmark_node_type type = cmark_node_get_type(part);
        if (type == CMARK_NODE_TEXT || type == CMARK_NODE_CODE) {
            text += literal(part);
        } else if (type == CMARK_NODE_SOFTBREAK || type == CMARK_NODE_LINEBREAK) {
            text += u' ';
        }
    }
    return plain(text);
}

/// An address that may be kept in a document; empty for any other.
QString safeAddress(const char* address) {
    const QString text = QString::fromUtf8(address);
    if (text.size() > maximumAddress) {
        return {};
    }
    const QUrl url(text);
    const QString scheme = url.scheme();
    const bool isSafe =
        url.isValid() && (scheme.isEmpty() || scheme == QStringLiteral("http") ||
                          scheme == QStringLiteral("https") || scheme == QStringLiteral("mailto"));
    return isSafe ? text : QString();
}

} // namespace

DocumentBuilder::DocumentBuilder(QTextDocument& document, const QUrl& baseUrl,
                                 const DocumentStyler& styler)
    : m_styler(styler),
      m_images(new DocumentImages(baseUrl, &document)),
      m_cursor(&document),
      m_blocks(maximumBlocks),
      m_cells(maximumCells) {
    document.documentLayout()->registerHandler(DocumentImages::objectType, m_images);
    document.documentLayout()->registerHandler(CheckBoxes::objectType, new CheckBoxes(&document));
}

void DocumentBuilder::build(const CmarkTree& tree, bool isTruncated) {
    m_cursor.beginEditBlock();
    const Iterator iterator(cmark_iter_new(tree.root()));
    cmark_event_type event = CMARK_EVENT_NONE;
    while (!isExhausted() && (event = cmark_iter_next(iterator.get())) != CMARK_EVENT_DONE) {
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
    if (isTruncated || isExhausted()) {
        addRemark();
    }
    m_cursor.endEditBlock();
}

void DocumentBuilder::enter(cmark_node* node) {
    if (enterInline(node)) {
        return;
    }
    switch (cmark_node_get_type(node)) {
    case CMARK_NODE_PARAGRAPH:
        startBlock(BlockRole::Paragraph);
        break;
    case CMARK_NODE_HEADING:
        addHeading(node);
        break;
    case CMARK_NODE_BLOCK_QUOTE:
        flushItem();
        if (m_frames.size() < maximumFrameDepth) {
            openFrame(FrameRole::Quotation, 1, 1);
        } else {
            m_frames.push_back({nullptr, m_indent});
        }
        pushRole(TextRole::quotation);
        break;
    case CMARK_NODE_LIST:
        enterList(node);
        break;
    case CMARK_NODE_ITEM:
        enterItem(node);
        break;
    case CMARK_NODE_CODE_BLOCK:
        addCodeBlock(node);
        break;
    case CMARK_NODE_HTML_BLOCK:
        startBlock(BlockRole::Paragraph);
        insertText(blockLiteral(node));
        break;
    case CMARK_NODE_THEMATIC_BREAK: {
        QTextBlockFormat format;
        format.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                           QTextLength(QTextLength::PercentageLength, 100));
        startBlock(BlockRole::Rule, format);
        insertText(blockKeeper);
        break;
    }
    default:
        if (isKind(node, "table")) {
            enterTable(node);
        } else if (isKind(node, "table_header") || isKind(node, "table_row")) {
            ++m_tableRow;
            m_tableColumn = 0;
            pushRole(isKind(node, "table_header") ? TextRole::tableHeader : 0);
        } else if (isKind(node, "table_cell")) {
            enterTableCell(node);
        }
    }
}

void DocumentBuilder::exit(cmark_node* node) {
    switch (cmark_node_get_type(node)) {
    case CMARK_NODE_HEADING:
        anchorHeading(node);
        m_headingLevel = 0;
        break;
    case CMARK_NODE_BLOCK_QUOTE:
        closeFrame();
        m_roles.pop_back();
        break;
    case CMARK_NODE_LIST:
        exitList();
        break;
    case CMARK_NODE_ITEM:
        exitItem();
        break;
    default:
        if (isKind(node, "table")) {
            closeFrame();
        } else if (isKind(node, "table_header") || isKind(node, "table_row")) {
            m_roles.pop_back();
        } else {
            exitInline(node);
        }
    }
}

bool DocumentBuilder::enterInline(cmark_node* node) {
    switch (cmark_node_get_type(node)) {
    case CMARK_NODE_TEXT:
    case CMARK_NODE_HTML_INLINE:
        insertText(plain(literal(node)));
        return true;
    case CMARK_NODE_CODE:
        m_cursor.insertText(plain(literal(node)), charFormat(TextRole::code));
        return true;
    case CMARK_NODE_SOFTBREAK:
        insertText(QStringLiteral(" "));
        return true;
    case CMARK_NODE_LINEBREAK:
        insertText(QChar(QChar::LineSeparator));
        return true;
    case CMARK_NODE_EMPH:
        pushRole(TextRole::emphasis);
        return true;
    case CMARK_NODE_STRONG:
        pushRole(TextRole::strong);
        return true;
    case CMARK_NODE_LINK:
        m_link = safeAddress(cmark_node_get_url(node));
        pushRole(m_link.isEmpty() ? 0 : TextRole::link);
        return true;
    case CMARK_NODE_IMAGE:
        addImage(node);
        return true;
    default:
        if (isKind(node, "strikethrough")) {
            pushRole(TextRole::strikethrough);
            return true;
        }
        return false;
    }
}

void DocumentBuilder::exitInline(cmark_node* node) {
    const cmark_node_type type = cmark_node_get_type(node);
    if (type == CMARK_NODE_EMPH || type == CMARK_NODE_STRONG || type == CMARK_NODE_LINK ||
        isKind(node, "strikethrough")) {
        m_roles.pop_back();
    }
    if (type == CMARK_NODE_LINK) {
        m_link.clear();
    }
}

void DocumentBuilder::pushRole(int role) {
    m_roles.push_back(m_roles.back() | role);
}

void DocumentBuilder::enterList(cmark_node* node) {
    flushItem();
    const bool isOrdered = cmark_node_get_list_type(node) == CMARK_ORDERED_LIST;
    const bool endsWithParenthesis = cmark_node_get_list_delim(node) == CMARK_PAREN_DELIM;
    const int start = isOrdered ? cmark_node_get_list_start(node) : 1;
    m_lists.push_back({isOrdered, cmark_node_get_list_tight(node) != 0, start == 1, start,
                       endsWithParenthesis ? QStringLiteral(")") : QStringLiteral("."), nullptr});
    ++m_indent;
}

void DocumentBuilder::exitList() {
    m_lists.pop_back();
    --m_indent;
    if (m_indent == 0 && !m_isBlockFresh) {
        markLastBlock(lastInListProperty);
    }
}

void DocumentBuilder::enterItem(cmark_node* node) {
    flushItem();
    QTextBlockFormat::MarkerType marker = QTextBlockFormat::MarkerType::NoMarker;
    if (isKind(node, "tasklist")) {
        marker = cmark_gfm_extensions_get_tasklist_item_checked(node)
                     ? QTextBlockFormat::MarkerType::Checked
                     : QTextBlockFormat::MarkerType::Unchecked;
    }
    m_pendingItem = PendingItem{marker};
}

void DocumentBuilder::exitItem() {
    flushItem();
    OpenList& list = m_lists.back();
    list.number = std::min(list.number + 1, maximumItemNumber);
}

void DocumentBuilder::flushItem() {
    if (m_pendingItem) {
        startBlock(BlockRole::Paragraph);
        insertText(blockKeeper);
    }
}

void DocumentBuilder::startBlock(BlockRole role, QTextBlockFormat format) {
    --m_blocks;
    const bool isItem = m_pendingItem.has_value();
    if (!m_lists.empty() && role == BlockRole::Paragraph && m_lists.back().isTight) {
        role = BlockRole::TightItem;
    }
    format.setProperty(blockRoleProperty, static_cast<int>(role));
    const QString number = textMarker();
    if (!number.isEmpty()) {
        format.setProperty(hangingMarkerProperty, number);
    }
    const auto box = isItem ? m_pendingItem->marker : QTextBlockFormat::MarkerType::NoMarker;
    if (box != QTextBlockFormat::MarkerType::NoMarker) {
        format.setMarker(box);
    }
    m_pendingItem.reset();
    // The list itself indents its blocks.
    const bool isInList =
        isItem && number.isEmpty() && box == QTextBlockFormat::MarkerType::NoMarker;
    format.setIndent(isInList ? 0 : std::min(m_indent, maximumIndent));
    m_styler.style(format);
    if (m_isBlockFresh) {
        m_cursor.setBlockFormat(format);
        // Merged, since the first block of a cell holds the format of the cell.
        m_cursor.mergeBlockCharFormat(charFormat());
    } else {
        m_cursor.insertBlock(format, charFormat());
    }
    m_isBlockFresh = false;
    if (isInList) {
        addToList(format);
    }
    insertText(number);
    addCheckBox(box);
}

QString DocumentBuilder::textMarker() const {
    const bool isPlainItem =
        m_pendingItem && m_pendingItem->marker == QTextBlockFormat::MarkerType::NoMarker;
    if (!isPlainItem || !m_lists.back().isOrdered || m_lists.back().beginsAtOne) {
        return {};
    }
    return QString::number(m_lists.back().number) + m_lists.back().numberSuffix + u'\u00A0' + u' ';
}

void DocumentBuilder::addCheckBox(QTextBlockFormat::MarkerType marker) {
    if (marker == QTextBlockFormat::MarkerType::NoMarker) {
        return;
    }
    QTextCharFormat format =
        charFormat(marker == QTextBlockFormat::MarkerType::Checked ? TextRole::checkedBox
                                                                   : TextRole::uncheckedBox);
    format.setObjectType(CheckBoxes::objectType);
    m_cursor.insertText(QChar(QChar::ObjectReplacementCharacter), format);
}

void DocumentBuilder::addToList(const QTextBlockFormat& format) {
    OpenList& open = m_lists.back();
    if (open.list != nullptr) {
        open.list->add(m_cursor.block());
    } else {
        QTextListFormat listFormat;
        constexpr std::array bullets{QTextListFormat::ListDisc, QTextListFormat::ListCircle,
                                     QTextListFormat::ListSquare};
        const auto depth = static_cast<std::size_t>(std::max(0, m_indent - 1));
        listFormat.setStyle(open.isOrdered ? QTextListFormat::ListDecimal
                                           : bullets[std::min(depth, bullets.size() - 1)]);
        listFormat.setNumberSuffix(open.numberSuffix);
        listFormat.setIndent(std::min(m_indent, maximumIndent));
        open.list = m_cursor.createList(listFormat);
    }
    // Joining a list sets an indentation of the block's own.
    m_cursor.setBlockFormat([&] {
        QTextBlockFormat joined = format;
        joined.setObjectIndex(open.list->objectIndex());
        return joined;
    }());
}

void DocumentBuilder::addHeading(cmark_node* node) {
    const int level = cmark_node_get_heading_level(node);
    m_headingLevel = level;
    QTextBlockFormat format;
    format.setHeadingLevel(level);
    startBlock(BlockRole::Heading, format);
}

void DocumentBuilder::anchorHeading(cmark_node* node) {
    QTextCursor cursor(m_cursor.block());
    if (cursor.atBlockEnd() || m_anchorCount >= maximumAnchors) {
        return;
    }
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    QTextCharFormat anchor;
    anchor.setAnchor(true);
    anchor.setAnchorNames({anchorFor(node)});
    cursor.mergeCharFormat(anchor);
    ++m_anchorCount;
}

QString DocumentBuilder::anchorFor(cmark_node* heading) {
    QString base;
    for (const QChar character : textOf(heading).toLower()) {
        if (character.isLetterOrNumber() || character == u'-' || character == u'_') {
            base += character;
        } else if (character == u' ') {
            base += u'-';
        }
    }
    const int earlier = m_anchors[base]++;
    return earlier == 0 ? base : base + u'-' + QString::number(earlier);
}

void DocumentBuilder::addCodeBlock(cmark_node* node) {
    flushItem();
    openFrame(FrameRole::Code, 1, 1);
    startBlock(BlockRole::Code);
    m_cursor.insertText(blockLiteral(node), charFormat(TextRole::codeBlock));
    closeFrame();
}

void DocumentBuilder::enterTable(cmark_node* node) {
    flushItem();
    int rows = 0;
    for (cmark_node* row = cmark_node_first_child(node); row != nullptr;
         row = cmark_node_next(row)) {
        ++rows;
    }
    const int columns = std::max<int>(1, cmark_gfm_extensions_get_table_columns(node));
    const int affordableRows = std::max(1, m_cells / columns);
    openFrame(FrameRole::Table, std::clamp(rows, 1, affordableRows), std::min(columns, m_cells));
    m_tableRow = -1;
}

void DocumentBuilder::enterTableCell(cmark_node* node) {
    const QTextTable& table = *m_frames.back().table;
    const int column = m_tableColumn++;
    if (m_tableRow >= table.rows() || column >= table.columns()) {
        m_blocks = 0;
        return;
    }
    m_cursor = table.cellAt(m_tableRow, column).firstCursorPosition();
    m_isBlockFresh = true;
    cmark_node* const tableNode = cmark_node_parent(cmark_node_parent(node));
    const uint8_t* const alignments = cmark_gfm_extensions_get_table_alignments(tableNode);
    const char alignment = alignments == nullptr ? '\0' : static_cast<char>(alignments[column]);
    QTextBlockFormat format;
    format.setAlignment(alignment == 'c'   ? Qt::AlignHCenter
                        : alignment == 'r' ? Qt::AlignRight
                                           : Qt::AlignLeft);
    startBlock(BlockRole::TableCell, format);
}

void DocumentBuilder::openFrame(FrameRole role, int rows, int columns) {
    m_cells -= rows * columns + cellsPerFrame;
    QTextTableFormat format;
    format.setProperty(frameRoleProperty, static_cast<int>(role));
    format.setProperty(frameIndentProperty, std::min(m_indent, maximumIndent));
    if (role == FrameRole::Table) {
        format.setHeaderRowCount(1);
    } else {
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    }
    QTextTable* const table = m_cursor.insertTable(rows, columns, format);
    m_styler.style(*table);
    m_cursor = table->firstCursorPosition();
    m_frames.push_back({table, m_indent});
    m_indent = 0;
    m_isBlockFresh = true;
}

void DocumentBuilder::closeFrame() {
    const OpenFrame frame = m_frames.back();
    m_frames.pop_back();
    m_indent = frame.outerIndent;
    if (frame.table == nullptr) {
        return;
    }
    markLastBlock(lastInFrameProperty);
    m_cursor = frame.table->lastCursorPosition();
    m_cursor.movePosition(QTextCursor::NextBlock);
    m_cursor.setBlockFormat({});
    m_isBlockFresh = true;
}

void DocumentBuilder::markLastBlock(int property) {
    QTextBlockFormat format = m_cursor.blockFormat();
    if (!format.hasProperty(blockRoleProperty)) {
        return;
    }
    format.setProperty(property, true);
    m_styler.style(format);
    m_cursor.setBlockFormat(format);
}

void DocumentBuilder::addImage(cmark_node* node) {
    const QString source = QString::fromUtf8(cmark_node_get_url(node));
    const QString description = textOf(node);
    if (!m_images->load(source)) {
        m_cursor.insertText(description, charFormat(TextRole::missingImage));
        return;
    }
    QTextCharFormat format = charFormat();
    format.setObjectType(DocumentImages::objectType);
    format.setProperty(DocumentImages::sourceProperty, source);
    format.setProperty(QTextFormat::ImageAltText, description);
    format.setToolTip(description);
    m_cursor.insertText(QChar(QChar::ObjectReplacementCharacter), format);
}

void DocumentBuilder::insertText(const QString& text) {
    if (!text.isEmpty()) {
        m_cursor.insertText(text, charFormat());
    }
}

const QTextCharFormat& DocumentBuilder::charFormat(int extraRole) {
    const int role = m_roles.back() | extraRole;
    const auto key = std::tuple(role, m_headingLevel, m_link);
    if (key == m_formatKey) {
        return m_format;
    }
    m_formatKey = key;
    m_format = {};
    m_format.setProperty(TextRole::property, role);
    if (!m_link.isEmpty()) {
        m_format.setAnchor(true);
        m_format.setAnchorHref(m_link);
    }
    m_styler.style(m_format, m_headingLevel);
    return m_format;
}

void DocumentBuilder::addRemark() {
    m_cursor.movePosition(QTextCursor::End);
    m_roles = {TextRole::emphasis};
    m_lists.clear();
    m_pendingItem.reset();
    m_link.clear();
    m_indent = 0;
    m_headingLevel = 0;
    m_isBlockFresh = m_cursor.block().length() == 1;
    startBlock(BlockRole::Paragraph);
    insertText(QStringLiteral("The rest of this text is too long to show."));
}

} // namespace quorvantel::markdown
