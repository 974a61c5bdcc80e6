#pragma once

#include "help/HelpBundle.h"
#include "help/HelpContent.h"
#include "help/HelpContentError.h"
#include "help/HelpStyle.h"
#include "help/TopicHistory.h"
#include "help/TopicSearch.h"
#include "help/TopicSidebar.h"
#include "help/TopicView.h"

#include <QHash>
#include <QSplitter>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <optional>
#include <variant>

namespace quorvantel::help {

/// The help window: topics in their groups on the left, the topic being read on the right.
///
/// A word typed into the search field narrows the list to the topics that have it, shows the first
/// of them unless the topic being read is one, and marks it there. Links to other topics (by the
/// name of their Markdown file) open them; http, https and mailto links go to `onOpenUrl`; any
/// other link does nothing. Control+F, Alt+Left and Right, and Control with plus, minus and 0 work
/// everywhere in it. Text follows the application's font. Nothing is kept on disk.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    using Content = std::variant<HelpContent, HelpContentError>;

    /// Shows the first topic; where loading failed or there are no topics, that there is no help.
    HelpWindow(Content content, HelpBundle bundle, HelpStyle style, QWidget* parent = nullptr);

    /// Opens an address of the web or of a mail in another application. At first that is the
    /// desktop's choice.
    std::function<void(const QUrl&)> onOpenUrl;

    /// The colours from now on; nothing scrolls and no selection is lost.
    void setStyle(const HelpStyle& style);

    /// The topic that is shown; absent when there is none.
    std::optional<HelpTopic> currentTopic() const;

    /// The size of the text relative to the application's font.
    double zoom() const { return m_zoom; }

    /// Null when there are no topics.
    TopicSidebar* sidebar() const { return m_sidebar; }
    TopicView* topicView() const { return m_view; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// A place that the reader has been to.
    struct Place {
        std::size_t topic = 0;
        QString anchor;

        friend bool operator==(const Place&, const Place&) = default;
    };

    void buildBrowser();
    void buildEmptyState();
    void addShortcuts();
    void addShortcut(const QList<QKeySequence>& keys, std::function<void()> action);
    void visit(const Place& place);
    void goTo(const Place& place);
    void goBack();
    void goForward();
    void showTopic(std::size_t topic);
    void leaveTopic();
    void recordShownTopic();
    void updateHistoryButtons();
    void search(const QString& query);
    void buildIndex();
    void markMatches(bool scrolls);
    void openLink(const QUrl& link);
    std::optional<std::size_t> topicForFile(const QString& file) const;
    std::unique_ptr<QTextDocument> render(std::size_t topic) const;
    void setZoom(double zoom);
    void applyStyle();
    markdown::MarkdownStyle markdownStyle() const;

    HelpContent m_content;
    HelpBundle m_bundle;
    HelpStyle m_style;
    TopicHistory<Place> m_history;
    /// Where each topic was scrolled to when the reader left it.
    QHash<std::size_t, int> m_scrollPositions;
    std::optional<TopicSearch> m_index;
    std::optional<std::size_t> m_current;
    double m_zoom = 1;
    QSplitter* m_splitter = nullptr;
    TopicSidebar* m_sidebar = nullptr;
    TopicView* m_view = nullptr;
};

} // namespace quorvantel::help
