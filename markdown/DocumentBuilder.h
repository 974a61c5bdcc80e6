#pragma once

#include "markdown/BlockRole.h"
#include "markdown/CmarkTree.h"
#include "markdown/DocumentImages.h"
#include "markdown/DocumentStyler.h"
#include "markdown/FrameRole.h"

#include <QSet>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>

#include <optional>
#include <vector>

namespace quorvantel::markdown {

/// Writes a syntax tree into an empty document. Used once.
class DocumentBuilder {
public:
    /// The document and the styler must outlive the builder.
    DocumentBuilder(QTextDocument& document, const QUrl& baseUrl, const DocumentStyler& styler);

    /// `isTruncated` asks for the remark that something was left out.
    void build(const CmarkTree& tree, bool isTruncated);

private:
    /// A list whose items are being written.
    struct OpenList {
        bool isOrdered;
        bool isTight;
        /// The number of the next item of an ordered list.
        int number;
        QString numberSuffix;
        /// The document's list, once it has an item; null in lists that do not begin at one, whose
        /// numbers are text.
        QTextList* list;
    };

    /// A quotation, code block or table that is being written.
    struct OpenFrame {
        /// Null for a quotation that is nested too deeply to be shown as one.
        QTextTable* table;
        int outerIndent;
    };

    /// An item of a list that has no block yet.
    struct PendingItem {
        QTextBlockFormat::MarkerType marker;
    };

    void enter(cmark_node* node);
    void exit(cmark_node* node);
    bool enterInline(cmark_node* node);
    void exitInline(cmark_node* node);

    void enterList(cmark_node* node);
    void enterItem(cmark_node* node);
    void exitItem();
    void enterTable(cmark_node* node);
    void enterTableCell(cmark_node* node);
    void addCodeBlock(cmark_node* node);
    void addHeading(cmark_node* node);
    void addImage(cmark_node* node);

    void startBlock(BlockRole role, QTextBlockFormat format = {});
    void startItemBlock(QTextBlockFormat& format);
    void addToList(const QTextBlockFormat& format);
    void flushItem();
    void pushRole(int role);
    QTextTable* openFrame(FrameRole role, int rows, int columns);
    void closeFrame();
    void closeLastBlock();
    void insertText(const QString& text);
    QTextCharFormat charFormat(int extraRole = 0) const;
    void anchorHeading(cmark_node* node);
    QString anchorFor(cmark_node* heading);
    void addRemark();
    bool isExhausted() const { return m_blocks <= 0 || m_cells <= 0; }

    QTextDocument& m_document;
    const DocumentStyler& m_styler;
    DocumentImages* m_images;
    QTextCursor m_cursor;
    std::vector<OpenList> m_lists;
    std::vector<OpenFrame> m_frames;
    /// The flags of `TextRole` in force, with those of the surrounding nodes below.
    std::vector<int> m_roles{0};
    /// The address of the link being written, if it has one.
    QString m_link;
    std::optional<PendingItem> m_pendingItem;
    QSet<QString> m_anchors;
    /// Levels of lists within the innermost frame.
    int m_indent = 0;
    int m_headingLevel = 0;
    /// The cursor is in a block that nothing has claimed.
    bool m_isBlockFresh = true;
    /// How much more may be written.
    int m_blocks;
    int m_cells;
    int m_tableRow = -1;
    int m_tableColumn = 0;
};

} // namespace quorvantel::markdown
