#pragma once

#include "help/FoldedText.h"
#include "help/TopicMatch.h"

#include <QString>

#include <vector>

namespace quorvantel::help {

/// Finds topics by words in their titles and texts, whatever their case and accents.
class TopicSearch {
public:
    /// Adds the next topic. `text` is what the reader sees, without the markup; the title at its
    /// beginning is left out, as a snippet would only repeat it.
    void add(const QString& title, const QString& text);

    /// The topics in which each of the query's words occurs, be it as part of a word, in the order
    /// in which they were added. A query without words matches nothing.
    std::vector<TopicMatch> find(const QString& query) const;

private:
    struct Entry {
        FoldedText title;
        FoldedText foldedText;
        QString text;
    };

    static TopicMatch matchFor(const Entry& entry, std::size_t index, const QStringList& words);

    std::vector<Entry> m_entries;
};

} // namespace quorvantel::help
