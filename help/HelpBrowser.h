#pragma once

#include "help/HelpBundle.h"
#include "help/HelpContent.h"
#include "help/HelpStyle.h"
#include "help/TopicHistory.h"
#include "help/TopicSearch.h"
#include "help/TopicSidebar.h"
#include "help/TopicView.h"

#include <QSplitter>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace quorvantel::help {

/// Topics in their groups on the left, the topic being read on the right.
///
/// A word typed into the search field narrows the list to the topics that have it, shows the first
/// of them unless the topic being read is one, and marks it there. Links to other topics (by the
/// name of their Markdown file) open them; any other link but one to the web does nothing.
/// Control+F, Alt+Left and Right, and Control with plus, minus and 0 work everywhere in its window.
/// Text follows the application's font.
class HelpBrowser : public QWidget {
    Q_OBJECT

public:
    /// Shows the first topic. There has to be one.
    HelpBrowser(HelpContent content, HelpBundle bundle, const HelpStyle& style,
                QWidget* parent = nullptr);

    /// The colours from now on; nothing scrolls and no selection is lost.
    void setStyle(const HelpStyle& style);

    /// Lets go of the topic's document, whose pictures take megabytes, until `resume` shows it
    /// again as the reader left it, but for a selection. Meanwhile nothing is to be asked of this
    /// object.
    void rest();
    void resume();

    HelpTopic currentTopic() const { return m_content.topics[*m_current]; }

    TopicSidebar& sidebar() const { return *m_sidebar; }
    TopicView& topicView() const { return *m_view; }

Q_SIGNALS:
    /// A link to an http, https or mailto address was followed.
    void urlRequested(const QUrl& url);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// A place that the reader has been to.
    struct Place {
        std::size_t topic = 0;
        QString anchor;
        /// Where the view was scrolled to when the reader left.
        int scrollPosition = 0;

        friend bool operator==(const Place& left, const Place& right) {
            return left.topic == right.topic && left.anchor == right.anchor;
        }
    };

    void layOut();
    void connectParts();
    void addShortcuts();
    void addShortcut(const QList<QKeySequence>& keys, const std::function<void()>& action);
    void visit(const Place& place);
    void goTo(const Place& place);
    void goBack();
    void goForward();
    void returnTo(const Place& place);
    void showTopic(std::size_t topic);
    void leavePlace();
    void search(const QString& query);
    void buildIndex();
    bool isListed(std::size_t topic) const;
    void markMatches(bool scrolls);
    void openLink(const QUrl& link);
    std::unique_ptr<QTextDocument> render(std::size_t topic) const;
    void setZoom(double zoom);
    markdown::MarkdownStyle markdownStyle() const;

    HelpContent m_content;
    HelpBundle m_bundle;
    HelpStyle m_style;
    TopicHistory<Place> m_history;
    std::optional<TopicSearch> m_index;
    /// Absent only until the first topic is shown.
    std::optional<std::size_t> m_current;
    /// The size of the text relative to the application's font.
    double m_zoom = 1;
    QSplitter* m_splitter;
    TopicSidebar* m_sidebar;
    TopicView* m_view;
};

} // namespace quorvantel::help
