#include "markdown/BlockWriter.h"

#include "markdown/TextRole.h"

#include <algorithm>

namespace quorvantel::markdown {

namespace {

constexpr int maximumCells = 8'000;
/// A one-cell table costs the layout more than the cell of a larger one does.
constexpr int cellsPerFrame = 8;
/// Laying out a frame takes more than one pass over what is in it, so their depth counts.
constexpr std::size_t maximumFrameDepth = 4;

/// In a block without text. An empty block next to a table would be laid out beside it.
const QString blockKeeper(QChar(0x200B));

/// Empty for an item that is no task.
QString textOf(QTextBlockFormat::MarkerType box) {
    switch (box) {
    case QTextBlockFormat::MarkerType::Checked:
        return QStringLiteral(u"\u2611\u00A0 ");
    case QTextBlockFormat::MarkerType::Unchecked:
        return QStringLiteral(u"\u2610\u00A0 ");
    case QTextBlockFormat::MarkerType::NoMarker:
        break;
    }
    return {};
}

} // namespace

BlockWriter::BlockWriter(TextWriter& text, const DocumentStyler& styler)
    : m_text(text), m_styler(styler), m_cells(maximumCells) {}

void BlockWriter::start(BlockRole role, QTextBlockFormat format) {
    const bool isTight = role == BlockRole::Paragraph && m_lists.isTight();
    format.setProperty(blockRoleProperty, static_cast<int>(isTight ? BlockRole::TightItem : role));
    const std::optional<OpenLists::Item> item = m_lists.takePendingItem();
    if (!item) {
        placeBlock(format, m_lists.indent());
        return;
    }
    if (!item->number.isEmpty()) {
        format.setProperty(hangingMarkerProperty, item->number);
    }
    const QString box = textOf(item->box);
    if (item->hasBoxForBullet()) {
        format.setProperty(hangingMarkerProperty, box);
    }
    if (item->isMarkedByDocument()) {
        // The list itself indents its blocks.
        m_lists.join(m_text.cursor(), placeBlock(format, 0));
    } else {
        placeBlock(format, m_lists.indent());
        m_text.insert(item->number);
    }
    m_text.insert(box, item->box == QTextBlockFormat::MarkerType::Checked ? TextRole::checkedBox
                                                                          : TextRole::uncheckedBox);
}

QTextBlockFormat BlockWriter::placeBlock(QTextBlockFormat format, int indent) {
    format.setIndent(indent);
    m_styler.style(format);
    if (m_isBlockFresh) {
        m_text.cursor().setBlockFormat(format);
        // Merged, since the first block of a cell holds the format of the cell.
        m_text.cursor().mergeBlockCharFormat(m_text.format());
    } else {
        m_text.cursor().insertBlock(format, m_text.format());
    }
    m_isBlockFresh = false;
    return format;
}

void BlockWriter::addCode(const QString& text) {
    flushItem();
    openFrame(FrameRole::Code, 1, 1);
    start(BlockRole::Code);
    m_text.insert(text, TextRole::codeBlock);
    closeFrame();
}

void BlockWriter::addRule() {
    QTextBlockFormat format;
    format.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                       QTextLength(QTextLength::PercentageLength, 100));
    start(BlockRole::Rule, format);
    m_text.insert(blockKeeper);
}

void BlockWriter::flushItem() {
    if (m_lists.hasPendingItem()) {
        start(BlockRole::Paragraph);
        m_text.insert(blockKeeper);
    }
}

void BlockWriter::openList(const OpenLists::Kind& kind) {
    flushItem();
    m_lists.open(kind);
}

void BlockWriter::closeList() {
    m_lists.close();
    if (m_lists.depth() == 0 && !m_isBlockFresh) {
        markLastBlock(lastInListProperty);
    }
}

void BlockWriter::openItem(QTextBlockFormat::MarkerType box) {
    flushItem();
    m_lists.openItem(box);
}

void BlockWriter::closeItem() {
    flushItem();
    m_lists.closeItem();
}

void BlockWriter::openQuotation() {
    flushItem();
    if (m_frames.size() < maximumFrameDepth) {
        openFrame(FrameRole::Quotation, 1, 1);
    } else {
        m_frames.push_back({nullptr, 0});
    }
}

void BlockWriter::openTable(int rows, int columns) {
    flushItem();
    const int affordableRows = std::max(1, m_cells / columns);
    openFrame(FrameRole::Table, std::clamp(rows, 1, affordableRows), std::min(columns, m_cells));
}

void BlockWriter::startCell(int row, int column, Qt::Alignment alignment) {
    const QTextTable& table = *m_frames.back().table;
    if (row >= table.rows() || column >= table.columns()) {
        m_cells = 0;
        return;
    }
    m_text.cursor() = table.cellAt(row, column).firstCursorPosition();
    m_isBlockFresh = true;
    QTextBlockFormat format;
    format.setAlignment(alignment);
    start(BlockRole::TableCell, format);
}

void BlockWriter::openFrame(FrameRole role, int rows, int columns) {
    m_cells -= rows * columns + cellsPerFrame;
    QTextTableFormat format;
    format.setProperty(frameRoleProperty, static_cast<int>(role));
    format.setProperty(frameIndentProperty, m_lists.indent());
    if (role == FrameRole::Table) {
        format.setHeaderRowCount(1);
    } else {
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    }
    QTextTable* const table = m_text.cursor().insertTable(rows, columns, format);
    m_styler.style(*table);
    m_text.cursor() = table->firstCursorPosition();
    m_frames.push_back({table, m_lists.enterFrame()});
    m_isBlockFresh = true;
}

void BlockWriter::closeFrame() {
    const OpenFrame frame = m_frames.back();
    m_frames.pop_back();
    if (frame.table == nullptr) {
        return;
    }
    m_lists.leaveFrame(frame.outsideFrame);
    markLastBlock(lastInFrameProperty);
    QTextCursor& cursor = m_text.cursor();
    cursor = frame.table->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextBlock);
    cursor.setBlockFormat({});
    m_isBlockFresh = true;
}

void BlockWriter::markLastBlock(int property) {
    QTextBlockFormat format = m_text.cursor().blockFormat();
    if (!format.hasProperty(blockRoleProperty)) {
        return;
    }
    format.setProperty(property, true);
    m_styler.style(format);
    m_text.cursor().setBlockFormat(format);
}

void BlockWriter::addRemark() {
    m_text.cursor().movePosition(QTextCursor::End);
    m_text.reset(TextRole::emphasis);
    m_lists = {};
    m_isBlockFresh = m_text.cursor().block().length() == 1;
    start(BlockRole::Paragraph);
    m_text.insert(QStringLiteral("The rest of this text is too long to show."));
}

} // namespace quorvantel::markdown
