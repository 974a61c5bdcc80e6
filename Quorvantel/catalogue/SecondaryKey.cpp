#include "catalogue/SecondaryKey.h"

#include <QStringTokenizer>
#include <QVarLengthArray>

namespace quorvantel {

namespace {

constexpr qsizetype maximumLength = 250;
constexpr QChar separator(u'·');

/// Whether the scorer takes a letter after this one for the beginning of a word.
bool endsWord(QChar unit) {
    return unit == u'-' || unit == u'_' || unit == u'.' || unit == u'/';
}

void append(QStringView word, QString& key) {
    if (!key.isEmpty()) {
        key += u' ';
    }
    key += separator;
    qsizetype start = 0;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (endsWord(word[i])) {
            key += word.sliced(start, i + 1 - start);
            key += separator;
            start = i + 1;
        }
    }
    key += word.sliced(start);
}

} // namespace

QString secondaryKey(const QString& words) {
    const QString lowered = words.toLower();
    QVarLengthArray<QStringView, 64> distinct;
    QString key;
    key.reserve(maximumLength);
    for (const QStringView word : QStringView(lowered).tokenize(u' ', Qt::SkipEmptyParts)) {
        if (distinct.contains(word)) {
            continue;
        }
        distinct.append(word);
        const qsizetype length = key.size();
        append(word, key);
        if (key.size() > maximumLength) {
            key.truncate(length);
            break;
        }
    }
    return key;
}

} // namespace quorvantel
