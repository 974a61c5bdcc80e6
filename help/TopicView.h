#pragma once

#include "help/TextRange.h"
#include "markdown/MarkdownStyle.h"

#include <QTextBrowser>

#include <memory>
#include <vector>

namespace quorvantel::help {

/// Shows one topic's document, in a column that stays narrow enough to read.
///
/// It follows no link itself and loads nothing. Text can be selected and copied, with the keyboard
/// too.
class TopicView : public QTextBrowser {
    Q_OBJECT

public:
    explicit TopicView(QWidget* parent = nullptr);

    /// Shows a document of the Markdown renderer, from its top.
    void showDocument(std::unique_ptr<QTextDocument> document);

    /// Restyles the document; what is at the top of the view stays there.
    void setStyle(const markdown::MarkdownStyle& style);

    /// Marks parts of the document, and nothing else, with `fill` behind `text`.
    void mark(const std::vector<TextRange>& ranges, const QColor& fill, const QColor& text);

    /// Scrolls to where a part of the document is in the upper part of the view.
    void scrollTo(const TextRange& range);

Q_SIGNALS:
    /// The user turned the wheel with Control pressed: text is to be so many steps larger.
    void zoomRequested(int steps);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    QVariant loadResource(int type, const QUrl& name) override;

private:
    void fitColumn();
    int documentTop(int position) const;

    /// What is shown; the base class deletes no document that it is given.
    std::unique_ptr<QTextDocument> m_document;
};

} // namespace quorvantel::help
