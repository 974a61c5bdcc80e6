#include "help/TopicListModel.h"

#include <algorithm>

namespace quorvantel::help {

TopicListModel::TopicListModel(const HelpContent& content, QObject* parent)
    : QAbstractListModel(parent) {
    for (const HelpTopicGroup& group : content.groups) {
        m_groups.push_back({group.title, {}});
        for (std::size_t i = 0; i < content.topics.size(); ++i) {
            if (content.topics[i].group == group.title) {
                m_groups.back().topics.push_back({i, content.topics[i].title});
            }
        }
    }
    fill(nullptr);
}

void TopicListModel::showAll() {
    fill(nullptr);
}

void TopicListModel::showMatches(const std::vector<TopicMatch>& matches) {
    fill(&matches);
}

void TopicListModel::fill(const std::vector<TopicMatch>* matches) {
    beginResetModel();
    m_rows.clear();
    for (const Group& group : m_groups) {
        addGroup(group, matches);
    }
    endResetModel();
}

void TopicListModel::addGroup(const Group& group, const std::vector<TopicMatch>* matches) {
    std::vector<Row> rows;
    for (const GroupedTopic& topic : group.topics) {
        if (matches == nullptr) {
            rows.push_back({topic.topic, topic.title, {}, {}, {}});
            continue;
        }
        const auto match =
            std::find_if(matches->begin(), matches->end(), [&topic](const TopicMatch& candidate) {
                return candidate.topic == topic.topic;
            });
        if (match != matches->end()) {
            rows.push_back(
                {topic.topic, topic.title, match->inTitle, match->snippet, match->inSnippet});
        }
    }
    if (!rows.empty() && group.title) {
        m_rows.push_back({std::nullopt, *group.title, {}, {}, {}});
    }
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
}

const TopicListModel::Row& TopicListModel::row(const QModelIndex& index) const {
    return m_rows[static_cast<std::size_t>(index.row())];
}

QModelIndex TopicListModel::indexOf(std::size_t topic) const {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [topic](const Row& candidate) {
        return candidate.topic == topic;
    });
    return row == m_rows.end() ? QModelIndex() : index(static_cast<int>(row - m_rows.begin()));
}

std::optional<std::size_t> TopicListModel::firstTopic() const {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [](const Row& candidate) { return candidate.topic.has_value(); });
    return row == m_rows.end() ? std::nullopt : row->topic;
}

int TopicListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant TopicListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return row(index).title;
    case Qt::AccessibleDescriptionRole:
        return row(index).snippet;
    default:
        return {};
    }
}

Qt::ItemFlags TopicListModel::flags(const QModelIndex& index) const {
    return index.isValid() && row(index).topic ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                               : Qt::NoItemFlags;
}

} // namespace quorvantel::help
