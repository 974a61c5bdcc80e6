#pragma once

#include "markdown/BlockRole.h"
#include "markdown/DocumentStyler.h"
#include "markdown/FrameRole.h"
#include "markdown/OpenLists.h"
#include "markdown/TextWriter.h"

#include <QTextTable>

#include <vector>

namespace quorvantel::markdown {

/// Writes the blocks of a document, in the lists and frames that they are in. It writes only so
/// many frames and cells of tables, as a document's layout takes time for each.
class BlockWriter {
public:
    /// The writer of text, whose cursor it moves, and the styler must outlive it.
    BlockWriter(TextWriter& text, const DocumentStyler& styler);

    /// Whether nothing more may be written but the remark.
    bool isExhausted() const { return m_cells <= 0; }

    /// Starts a block, in which an item of a list begins if one is to; text follows.
    void start(BlockRole role, QTextBlockFormat format = {});

    /// A frame with the lines of code, which line separators part.
    void addCode(const QString& text);
    void addRule();

    void openList(const OpenLists::Kind& kind);
    void closeList();

    /// `box` is `NoMarker` for an item that is no task.
    void openItem(QTextBlockFormat::MarkerType box);
    void closeItem();

    /// Opens a frame around the blocks to come; for one that is nested too deeply, none is seen.
    void openQuotation();

    /// Opens a table, of fewer rows or columns when so many may not be written.
    void openTable(int rows, int columns);

    /// Starts the block of a cell in the open table; exhausts the document where the table was cut
    /// off before that cell.
    void startCell(int row, int column, Qt::Alignment alignment);

    /// Closes the quotation or the table that was opened last.
    void closeFrame();

    /// Says at the end of the document that something was left out. Nothing may follow.
    void addRemark();

private:
    /// A quotation, code block or table that is being written.
    struct OpenFrame {
        /// Null for a quotation that is nested too deeply to be shown as one.
        QTextTable* table;
        /// As `OpenLists::enterFrame` returned it.
        std::size_t outsideFrame;
    };

    /// Starts a block of that format, indented and styled, which it returns.
    QTextBlockFormat placeBlock(QTextBlockFormat format, int indent);
    void flushItem();
    void openFrame(FrameRole role, int rows, int columns);
    void markLastBlock(int property);

    TextWriter& m_text;
    const DocumentStyler& m_styler;
    OpenLists m_lists;
    std::vector<OpenFrame> m_frames;
    /// The cursor is in a block that nothing has claimed.
    bool m_isBlockFresh = true;
    /// How many more may be written.
    int m_cells;
};

} // namespace quorvantel::markdown
