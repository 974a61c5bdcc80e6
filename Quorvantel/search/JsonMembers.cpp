#include "search/JsonMembers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace quorvantel {

namespace {

/// From here on not every integer has a number of its own.
constexpr double firstInexactInteger = 9007199254740992.0;

bool isPlain(QChar character) {
    return character >= u' ' && character != u'"' && character != u'\\' && !character.isSurrogate();
}

} // namespace

QByteArray jsonString(const QString& text) {
    if (std::ranges::all_of(text, isPlain)) {
        return '"' + text.toUtf8() + '"';
    }
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

std::optional<QByteArray> jsonNumber(double number) {
    if (!std::isfinite(number)) {
        return std::nullopt;
    }
    // The shortest form of a round number would have an exponent.
    if (std::abs(number) < firstInexactInteger && number == std::trunc(number)) {
        return QByteArray::number(static_cast<qint64>(number));
    }
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
}

void JsonMembers::set(const QString& name, const std::optional<QByteArray>& value) {
    const size_t next = m_members.size();
    const size_t position = m_positions.value(name, next);
    if (position == next) {
        m_positions.insert(name, next);
        m_members.emplace_back();
    }
    m_members[position] = value ? jsonString(name) + ':' + *value : QByteArray();
}

void JsonMembers::clear() {
    m_positions.clear();
    m_members.clear();
}

std::optional<QByteArray> JsonMembers::text() const {
    qsizetype size = 2;
    for (const QByteArray& member : m_members) {
        if (member.isEmpty()) {
            return std::nullopt;
        }
        size += member.size() + 1;
    }
    QByteArray object;
    object.reserve(size);
    object += '{';
    for (const QByteArray& member : m_members) {
        object += member;
        object += ',';
    }
    if (!m_members.empty()) {
        object.chop(1);
    }
    object += '}';
    return object;
}

} // namespace quorvantel
