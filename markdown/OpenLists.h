#pragma once

#include <QString>
#include <QTextCursor>
#include <QTextList>

#include <optional>
#include <vector>

namespace quorvantel::markdown {

/// The lists that are being written, and the item of the innermost one that has no block yet.
class OpenLists {
public:
    /// What all items of a list have in common.
    struct Kind {
        bool isOrdered;
        /// Without space between its items.
        bool isTight;
        /// The number of the first item; 1 in a list of bullets.
        int firstNumber;
        QString numberSuffix;
    };

    /// How the first block of an item begins.
    struct Item {
        /// The box of a task; `NoMarker` for any other item.
        QTextBlockFormat::MarkerType box;
        bool isNumbered;
        /// The number, where it has to be text; empty otherwise.
        QString number;

        bool isTask() const { return box != QTextBlockFormat::MarkerType::NoMarker; }

        /// Whether its box stands in the place of a bullet; a number comes before the box.
        bool hasBoxForBullet() const { return isTask() && !isNumbered; }

        /// Whether the document's own list gives it its bullet or number.
        bool isMarkedByDocument() const { return number.isEmpty() && !hasBoxForBullet(); }
    };

    void open(const Kind& kind);
    void close();

    /// Begins an item of the innermost list. `box` is `NoMarker` for one that is no task.
    void openItem(QTextBlockFormat::MarkerType box);
    void closeItem();

    bool hasPendingItem() const { return m_pendingBox.has_value(); }

    /// The item that has no block yet, which from now on has one; absent when there is none.
    std::optional<Item> takePendingItem();

    /// Whether the innermost list has no space between its items.
    bool isTight() const { return !m_lists.empty() && m_lists.back().kind.isTight; }

    /// Makes the cursor's block an item of the document's list for the innermost one. `format` is
    /// the block's.
    void join(QTextCursor& cursor, const QTextBlockFormat& format);

    /// How many lists are open within the innermost frame.
    int depth() const { return static_cast<int>(m_lists.size() - m_outsideFrame); }

    /// By how many levels a block, or a frame, is indented here.
    int indent() const;

    /// Begins a frame, which indents nothing by the lists around it. What is returned is for
    /// `leaveFrame`, once the lists within are closed.
    std::size_t enterFrame();
    void leaveFrame(std::size_t outsideFrame) { m_outsideFrame = outsideFrame; }

private:
    struct OpenList {
        Kind kind;
        /// The number of the next item.
        int number;
        /// The document's list, once an item is in it.
        QTextList* list;
    };

    QTextList* createList(QTextCursor& cursor, const Kind& kind) const;

    std::vector<OpenList> m_lists;
    std::optional<QTextBlockFormat::MarkerType> m_pendingBox;
    /// How many of the lists are around the innermost frame.
    std::size_t m_outsideFrame = 0;
};

} // namespace quorvantel::markdown
