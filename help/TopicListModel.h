#pragma once

#include "help/HelpContent.h"
#include "help/TopicMatch.h"

#include <QAbstractListModel>

#include <optional>
#include <vector>

namespace quorvantel::help {

/// The rows of the sidebar: topics, each group of them below a row with its title.
class TopicListModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// A row as it is drawn.
    struct Row {
        /// The topic's place among all topics; absent in a group's title row.
        std::optional<std::size_t> topic;
        QString title;
        std::vector<TextRange> inTitle;
        /// Empty outside a search.
        QString snippet;
        std::vector<TextRange> inSnippet;
    };

    explicit TopicListModel(const HelpContent& content, QObject* parent = nullptr);

    /// Lists every topic.
    void showAll();

    /// Lists the matching topics, still in their groups.
    void showMatches(const std::vector<TopicMatch>& matches);

    const Row& row(const QModelIndex& index) const;

    /// The row of a topic; invalid when it is not listed.
    QModelIndex indexOf(std::size_t topic) const;

    /// The first topic listed.
    std::optional<std::size_t> firstTopic() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    /// A topic and its place among all topics, by group.
    struct GroupedTopic {
        std::size_t topic;
        QString title;
    };
    struct Group {
        std::optional<QString> title;
        std::vector<GroupedTopic> topics;
    };

    void addGroup(const Group& group, const std::vector<TopicMatch>* matches);
    void fill(const std::vector<TopicMatch>* matches);

    std::vector<Group> m_groups;
    std::vector<Row> m_rows;
};

} // namespace quorvantel::help
