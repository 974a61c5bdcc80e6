#pragma once

#include "help/HelpStyle.h"
#include "help/TextRange.h"

#include <QStyledItemDelegate>

#include <vector>

namespace quorvantel::help {

/// Draws the rows of a `TopicListModel`: titles of groups, and topics with the words found in their
/// titles and snippets marked.
class TopicRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setStyle(const HelpStyle& style) { m_style = style; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    double drawText(QPainter& painter, const QRectF& frame, const QString& text, const QFont& font,
                    const QColor& color, const std::vector<TextRange>& marked, int lines) const;

    HelpStyle m_style;
};

} // namespace quorvantel::help
