#pragma once

#include "help/HelpStyle.h"
#include "help/TopicListModel.h"
#include "help/TopicMatch.h"
#include "help/TopicRowDelegate.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QToolButton>
#include <QWidget>

#include <vector>

namespace quorvantel::help {

/// The list of topics with the search field and the buttons for back and forward above it.
///
/// It shows what it is told to and reports what the user asks for; it neither searches nor opens
/// topics itself.
class TopicSidebar : public QWidget {
    Q_OBJECT

public:
    explicit TopicSidebar(const HelpContent& content, QWidget* parent = nullptr);

    void setStyle(const HelpStyle& style);

    /// Lists every topic.
    void showAll();

    /// Lists the matches of a query, or says that there are none.
    void showMatches(const std::vector<TopicMatch>& matches, const QString& query);

    /// Marks a topic as the one shown; none where it is not listed. Emits nothing.
    void select(std::size_t topic);

    void setCanGo(bool back, bool forward);

    /// Puts the keyboard focus into the search field, with its text selected.
    void focusSearch();

    QString query() const { return m_searchField.text(); }
    QLineEdit& searchField() { return m_searchField; }
    QListView& list() { return m_list; }
    const TopicListModel& model() const { return m_model; }

Q_SIGNALS:
    void queryChanged(const QString& query);

    /// The user moved to a topic's row.
    void topicChosen(std::size_t topic);

    /// Return was pressed: the user wants to read the topic.
    void readingRequested();

    void backRequested();
    void forwardRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();
    void setUpButton(QToolButton& button, const QString& name);
    bool handleSearchKey(int key);
    void moveSelection(int step);

    HelpStyle m_style;
    TopicListModel m_model;
    TopicRowDelegate m_delegate;
    QToolButton m_back;
    QToolButton m_forward;
    QLineEdit m_searchField;
    QListView m_list;
    QLabel m_noMatch;
    bool m_isSelecting = false;
};

} // namespace quorvantel::help
