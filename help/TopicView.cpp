#include "help/TopicView.h"

#include "help/ContextMenu.h"
#include "help/TopicPageAccessible.h"
#include "markdown/MarkdownRenderer.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace quorvantel::help {

namespace {

/// The widest column of text, relative to the height of its font.
constexpr int columnEms = 52;
constexpr int wheelStep = 120;

} // namespace

TopicView::TopicView(QWidget* parent) : QTextBrowser(parent) {
    TopicPageAccessible::install();
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
}

void TopicView::showDocument(std::unique_ptr<QTextDocument> document) {
    // Marks hold on to places in the document that goes.
    setExtraSelections({});
    setDocument(document.get());
    m_document = std::move(document);
    fitColumn();
    moveCursor(QTextCursor::Start);
    verticalScrollBar()->setValue(0);
}

void TopicView::setStyle(const markdown::MarkdownStyle& style) {
    const QTextCursor top = cursorForPosition({0, 0});
    const int offset = documentTop(top.position()) - verticalScrollBar()->value();
    markdown::restyleMarkdown(*document(), style);
    fitColumn();
    verticalScrollBar()->setValue(documentTop(top.position()) - offset);
}

void TopicView::mark(const std::vector<TextRange>& ranges, const QColor& fill, const QColor& text) {
    QList<QTextEdit::ExtraSelection> selections;
    for (const TextRange& range : ranges) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(static_cast<int>(range.start));
        selection.cursor.setPosition(static_cast<int>(range.start + range.length),
                                     QTextCursor::KeepAnchor);
        selection.format.setBackground(fill);
        selection.format.setForeground(text);
        selections.append(selection);
    }
    setExtraSelections(selections);
}

void TopicView::scrollTo(const TextRange& range) {
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(range.start));
    setTextCursor(cursor);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top() -
                                  viewport()->height() / 4);
}

int TopicView::documentTop(int position) const {
    const QTextBlock block = document()->findBlock(position);
    return static_cast<int>(document()->documentLayout()->blockBoundingRect(block).top());
}

void TopicView::contextMenuEvent(QContextMenuEvent* event) {
    openContextMenu(*createStandardContextMenu(event->pos()), *this, event->globalPos());
}

void TopicView::resizeEvent(QResizeEvent* event) {
    fitColumn();
    QTextBrowser::resizeEvent(event);
}

void TopicView::fitColumn() {
    const int column = columnEms * QFontInfo(document()->defaultFont()).pixelSize() +
                       static_cast<int>(2 * document()->documentMargin());
    const int spare = std::max(0, width() - verticalScrollBar()->sizeHint().width() - column);
    setViewportMargins(spare / 2, 0, spare / 2, 0);
}

void TopicView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    if (const int turn = event->angleDelta().y(); turn != 0) {
        const int steps = turn / wheelStep;
        Q_EMIT zoomRequested(steps != 0 ? steps : (turn > 0 ? 1 : -1));
    }
    event->accept();
}

QVariant TopicView::loadResource(int /*type*/, const QUrl& /*name*/) {
    return {};
}

} // namespace quorvantel::help
