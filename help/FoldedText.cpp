#include "help/FoldedText.h"

#include "text/TextFolding.h"

#include <QRegularExpression>

#include <algorithm>

namespace quorvantel::help {

namespace {

constexpr std::size_t maximumPlaces = 2'000;

/// One character without case and accents; empty for a combining accent.
QString fold(QStringView character) {
    const QString plain = character.toString().normalized(QString::NormalizationForm_KD);
    const std::u32string scalars = foldedScalars(plain);
    // Decomposed, so that it does not matter which characters of a text were composed.
    return QString::fromUcs4(scalars.data(), static_cast<qsizetype>(scalars.size()))
        .normalized(QString::NormalizationForm_D);
}

qsizetype characterLength(QStringView text, qsizetype index) {
    return text[index].isHighSurrogate() && index + 1 < text.size() &&
                   text[index + 1].isLowSurrogate()
               ? 2
               : 1;
}

QString foldWhole(QStringView text) {
    QString folded;
    for (qsizetype i = 0; i < text.size(); i += characterLength(text, i)) {
        folded += fold(text.sliced(i, characterLength(text, i)));
    }
    return folded;
}

} // namespace

FoldedText::FoldedText(const QString& text) {
    m_folded.reserve(text.size());
    m_origins.reserve(static_cast<std::size_t>(text.size()) + 1);
    for (qsizetype i = 0; i < text.size(); i += characterLength(text, i)) {
        const QString folded = fold(QStringView(text).sliced(i, characterLength(text, i)));
        m_origins.insert(m_origins.end(), static_cast<std::size_t>(folded.size()), i);
        m_folded += folded;
    }
    m_origins.push_back(text.size());
}

void FoldedText::collect(const QString& foldedWord, std::vector<TextRange>& places) const {
    qsizetype at = m_folded.indexOf(foldedWord);
    while (at >= 0 && places.size() < maximumPlaces) {
        const qsizetype start = m_origins[static_cast<std::size_t>(at)];
        const qsizetype end = m_origins[static_cast<std::size_t>(at + foldedWord.size())];
        // A character that folds to several may have matched in part.
        places.push_back({start, std::max<qsizetype>(end - start, 1)});
        at = m_folded.indexOf(foldedWord, at + foldedWord.size());
    }
}

std::vector<TextRange> FoldedText::find(const QStringList& words) const {
    std::vector<TextRange> places;
    for (const QString& word : words) {
        collect(word, places);
    }
    std::sort(places.begin(), places.end(), [](const TextRange& left, const TextRange& right) {
        return left.start < right.start;
    });
    std::vector<TextRange> joined;
    for (const TextRange& place : places) {
        if (joined.empty() || place.start > joined.back().start + joined.back().length) {
            joined.push_back(place);
            continue;
        }
        TextRange& last = joined.back();
        last.length = std::max(last.start + last.length, place.start + place.length) - last.start;
    }
    return joined;
}

QStringList foldedWords(const QString& query) {
    static const QRegularExpression space(QStringLiteral("\\s+"));
    QStringList words;
    for (const QString& word : query.split(space, Qt::SkipEmptyParts)) {
        words.append(foldWhole(word));
    }
    words.removeAll(QString());
    words.removeDuplicates();
    return words;
}

} // namespace quorvantel::help
