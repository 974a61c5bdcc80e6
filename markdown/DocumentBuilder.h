#pragma once

#include "markdown/BlockRole.h"
#include "markdown/CmarkTree.h"
#include "markdown/DocumentImages.h"
#include "markdown/DocumentStyler.h"
#include "markdown/FrameRole.h"

#include <QHash>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>

#include <optional>
#include <tuple>
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
        /// In other lists the numbers are text, as the document's own lists all begin at one.
        bool beginsAtOne;
        /// The number of the next item of an ordered list.
        int number;
        QString numberSuffix;
        /// The document's list, once an item is in it.
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
    void exitList();
    void exitItem();
    void enterTable(cmark_node* node);
    void enterTableCell(cmark_node* node);
    void addCodeBlock(cmark_node* node);
    void addHeading(cmark_node* node);
    void addCheckBox(QTextBlockFormat::MarkerType marker);
    void addImage(cmark_node* node);

    void startBlock(BlockRole role, QTextBlockFormat format = {});
    void addToList(const QTextBlockFormat& format);
    QString textMarker() const;
    void flushItem();
    void pushRole(int role);
    void openFrame(FrameRole role, int rows, int columns);
    void closeFrame();
    void markLastBlock(int property);
    void insertText(const QString& text);
    const QTextCharFormat& charFormat(int extraRole = 0);
    void anchorHeading(cmark_node* node);
    QString anchorFor(cmark_node* heading);
    void addRemark();
    bool isExhausted() const { return m_blocks <= 0 || m_cells <= 0; }

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
    /// How many headings have each anchor, not counting the numbers that tell them apart.
    QHash<QString, int> m_anchors;
    int m_anchorCount = 0;
    /// Levels of lists within the innermost frame.
    int m_indent = 0;
    int m_headingLevel = 0;
    /// The format made last, and what it was made for; most text has that of the text before.
    QTextCharFormat m_format;
    std::tuple<int, int, QString> m_formatKey{-1, 0, {}};
    /// The cursor is in a block that nothing has claimed.
    bool m_isBlockFresh = true;
    /// How much more may be written.
    int m_blocks;
    int m_cells;
    int m_tableRow = -1;
    int m_tableColumn = 0;
};

} // namespace quorvantel::markdown
