#pragma once

#include "help/TextRange.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quorvantel::help {

/// A text in which words are found whatever their case and accents.
class FoldedText {
public:
    explicit FoldedText(const QString& text);

    /// Where the text has the given folded words, in order, with overlapping places joined. At most
    /// some thousand.
    std::vector<TextRange> find(const QStringList& foldedWords) const;

    bool contains(const QString& foldedWord) const { return m_folded.contains(foldedWord); }

private:
    void collect(const QString& foldedWord, std::vector<TextRange>& places) const;

    QString m_folded;
    /// For each code unit of `m_folded`, which one of the original it comes from; then the length
    /// of the original.
    std::vector<qsizetype> m_origins;
};

/// The words of what a user typed, folded, without duplicates.
QStringList foldedWords(const QString& query);

} // namespace quorvantel::help
