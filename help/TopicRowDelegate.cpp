#include "help/TopicRowDelegate.h"

#include "help/HelpPalette.h"
#include "help/TopicListModel.h"

#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace quorvantel::help {

namespace {

constexpr int outerMargin = 8;
constexpr int innerMargin = 10;
constexpr int verticalPadding = 7;
constexpr int groupSpaceAbove = 12;
constexpr int snippetSpacing = 3;
constexpr int snippetLines = 2;
constexpr double cornerRadius = 7;
constexpr double smallScale = 0.87;

const TopicListModel::Row& rowOf(const QModelIndex& index) {
    return static_cast<const TopicListModel*>(index.model())->row(index);
}

QFont groupFont(const QFont& font) {
    QFont result = scaled(font, smallScale);
    result.setWeight(QFont::DemiBold);
    return result;
}

int lineHeight(const QFont& font) {
    return static_cast<int>(std::ceil(QFontMetricsF(font).height()));
}

/// The text cut off with an ellipsis where `lines` lines of it are full.
QString elided(const QString& text, const QFont& font, double width, int lines) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QString result = text;
    for (int i = 0; i < lines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(width);
        const bool isLast = i + 1 == lines;
        if (isLast && line.textStart() + line.textLength() < text.size()) {
            result = text.first(line.textStart()) +
                     QFontMetricsF(font).elidedText(text.sliced(line.textStart()), Qt::ElideRight,
                                                    width);
        }
    }
    layout.endLayout();
    return result;
}

} // namespace

QSize TopicRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const TopicListModel::Row& row = rowOf(index);
    if (!row.topic) {
        const int space = index.row() == 0 ? verticalPadding : groupSpaceAbove + verticalPadding;
        return {0, space + lineHeight(groupFont(option.font)) + 3};
    }
    int height = 2 * verticalPadding + lineHeight(option.font);
    if (!row.snippet.isEmpty()) {
        height += snippetSpacing + snippetLines * lineHeight(scaled(option.font, smallScale));
    }
    return {0, height};
}

void TopicRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const TopicListModel::Row& row = rowOf(index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(option.rect).adjusted(outerMargin, 1, -outerMargin, -1);
    QRectF text = frame.adjusted(innerMargin, 0, -innerMargin, 0);
    if (!row.topic) {
        const QFont font = groupFont(option.font);
        text.setTop(text.bottom() - lineHeight(font) - 2);
        drawText(*painter, text, row.title, font, m_style.secondaryText, {}, 1);
        painter->restore();
        return;
    }
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (isSelected || option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? m_style.selectionFill : m_style.hoverFill);
        painter->drawRoundedRect(frame, cornerRadius, cornerRadius);
    }
    if (isSelected && option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(m_style.accent, 1.5));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(frame.adjusted(1, 1, -1, -1), cornerRadius - 1, cornerRadius - 1);
    }
    text.setTop(text.top() + verticalPadding - 1);
    const double titleHeight =
        drawText(*painter, text, row.title, option.font, m_style.text, row.inTitle, 1);
    text.setTop(text.top() + titleHeight + snippetSpacing);
    drawText(*painter, text, row.snippet, scaled(option.font, smallScale), m_style.secondaryText,
             row.inSnippet, snippetLines);
    painter->restore();
}

double TopicRowDelegate::drawText(QPainter& painter, const QRectF& frame, const QString& text,
                                  const QFont& font, const QColor& color,
                                  const std::vector<TextRange>& marked, int lines) const {
    const QString shown = elided(text, font, frame.width(), lines);
    QList<QTextLayout::FormatRange> formats;
    for (const TextRange& range : marked) {
        QTextCharFormat format;
        format.setBackground(m_style.matchFill);
        format.setForeground(m_style.text);
        formats.append({static_cast<int>(range.start), static_cast<int>(range.length), format});
    }
    QTextLayout layout(shown, font);
    layout.setFormats(formats);
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(frame.width());
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    painter.setPen(color);
    layout.draw(&painter, frame.topLeft());
    return height;
}

} // namespace quorvantel::help
