#include "help/TopicSearch.h"

#include <algorithm>

namespace quorvantel::help {

namespace {

/// How much of the text a snippet shows, and how much of that before the word found.
constexpr qsizetype snippetLength = 110;
constexpr qsizetype snippetLead = 30;

/// Where the first whole word at or after `position` begins, within reason.
qsizetype wordStart(QStringView text, qsizetype position, qsizetype limit) {
    if (position <= 0) {
        return 0;
    }
    for (qsizetype i = position; i < limit; ++i) {
        if (text[i - 1].isSpace()) {
            return i;
        }
    }
    return position;
}

QString snippetOf(const QString& text, const std::vector<TextRange>& places) {
    const qsizetype place = places.empty() ? 0 : places.front().start;
    const qsizetype start = wordStart(text, place - snippetLead, place);
    QString snippet = text.sliced(start, std::min(snippetLength, text.size() - start));
    snippet.remove(QChar::ObjectReplacementCharacter);
    snippet = snippet.simplified();
    if (start + snippetLength < text.size()) {
        snippet += u'…';
    }
    return start > 0 ? u'…' + snippet : snippet;
}

} // namespace

void TopicSearch::add(const QString& title, const QString& text) {
    const QString body = text.startsWith(title + u'\n') ? text.sliced(title.size() + 1) : text;
    m_entries.push_back({FoldedText(title), FoldedText(body), body});
}

std::vector<TopicMatch> TopicSearch::find(const QString& query) const {
    const QStringList words = foldedWords(query);
    std::vector<TopicMatch> matches;
    if (words.isEmpty()) {
        return matches;
    }
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const Entry& entry = m_entries[i];
        const bool hasAll = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return entry.title.contains(word) || entry.foldedText.contains(word);
        });
        if (hasAll) {
            matches.push_back(matchFor(entry, i, words));
        }
    }
    return matches;
}

TopicMatch TopicSearch::matchFor(const Entry& entry, std::size_t index, const QStringList& words) {
    TopicMatch match{index, entry.title.find(words), {}, {}};
    match.snippet = snippetOf(entry.text, entry.foldedText.find(words));
    match.inSnippet = FoldedText(match.snippet).find(words);
    return match;
}

} // namespace quorvantel::help
