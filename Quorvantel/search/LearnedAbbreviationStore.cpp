#include "search/LearnedAbbreviationStore.h"

#include "search/Days.h"
#include "search/StoredWeight.h"
#include "text/Ascii.h"

#include <QLocale>
#include <QTextBoundaryFinder>

#include <cmath>
#include <optional>
#include <utility>

namespace quorvantel {

namespace {

constexpr double halfLifeInDays = 30.0;
constexpr double boostMultiplier = 1.5;
constexpr QLatin1StringView weightName("weight");

bool hasTwoCharacters(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    const qsizetype firstEnd = finder.toNextBoundary();
    return firstEnd > 0 && firstEnd < text.size();
}

/// The form in which queries are compared; nothing for a query that is too short to learn.
std::optional<QString> normalised(const QString& query) {
    const QString trimmed = query.trimmed();
    if (isAscii(trimmed)) {
        // The only two that make one character are a line's end, which no trimmed text begins with.
        return trimmed.size() < 2 ? std::nullopt : std::optional(trimmed.toLower());
    }
    // The C locale's lower case is that of the Unicode Standard, with its final sigma and without
    // the exceptions of any language.
    QString text = QLocale::c().toLower(trimmed);
    if (!hasTwoCharacters(text)) {
        return std::nullopt;
    }
    return text;
}

double decayed(const LearnedAbbreviationStore::Entry& entry, double now) {
    const double days = (now - entry.lastUpdate) / secondsPerDay;
    return entry.weight * std::pow(2.0, -days / halfLifeInDays);
}

std::optional<QByteArray> encode(const LearnedAbbreviationStore::Associations& associations) {
    QByteArray object("{");
    for (auto entry = associations.cbegin(); entry != associations.cend(); ++entry) {
        const auto encoded = encodeWeight({entry->weight, entry->lastUpdate}, weightName);
        if (!encoded) {
            return std::nullopt;
        }
        if (object.size() > 1) {
            object += ',';
        }
        object += jsonString(entry.key()) + ':' + *encoded;
    }
    return object + '}';
}

std::optional<LearnedAbbreviationStore::Associations> decode(const QJsonValue& value) {
    if (!value.isObject()) {
        return std::nullopt;
    }
    const QJsonObject object = value.toObject();
    LearnedAbbreviationStore::Associations associations;
    for (auto member = object.begin(); member != object.end(); ++member) {
        const auto stored = decodeWeight(member.value(), weightName);
        if (!stored) {
            return std::nullopt;
        }
        associations.insert(member.key(), {stored->weight, stored->lastUpdate});
    }
    return associations;
}

} // namespace

LearnedAbbreviationStore::Boosts::Boosts(Associations associations, double date)
    : m_associations(std::move(associations)), m_date(date) {}

double LearnedAbbreviationStore::Boosts::operator[](const QString& id) const {
    const auto known = m_associations.constFind(id);
    return known == m_associations.cend() ? 0.0 : decayed(*known, m_date) * boostMultiplier;
}

LearnedAbbreviationStore::LearnedAbbreviationStore(const QString& storeDirectory)
    : m_file(storeDirectory + u"/abbreviations.json") {
    load();
}

void LearnedAbbreviationStore::learn(const QString& query, const QString& id, double date) {
    const auto text = normalised(query);
    if (!text) {
        return;
    }
    Associations& associations = m_table[*text];
    const auto known = associations.constFind(id);
    const double weight = known == associations.cend() ? 1.0 : decayed(*known, date) + 1.0;
    associations.insert(id, {weight, date});
    m_members.set(*text, encode(associations));
    m_file.save(m_members.text());
}

double LearnedAbbreviationStore::boost(const QString& query, const QString& id, double date) const {
    return boosts(query, date)[id];
}

LearnedAbbreviationStore::Boosts LearnedAbbreviationStore::boosts(const QString& query,
                                                                  double date) const {
    const auto text = normalised(query);
    return {text ? m_table.value(*text) : Associations(), date};
}

void LearnedAbbreviationStore::reset() {
    m_table.clear();
    m_members.clear();
    m_file.save(m_members.text());
}

void LearnedAbbreviationStore::load() {
    const std::optional<QJsonObject> root = m_file.load();
    if (!root) {
        return;
    }
    QHash<QString, Associations> table;
    table.reserve(root->size());
    for (auto member = root->begin(); member != root->end(); ++member) {
        const auto associations = decode(member.value());
        if (!associations) {
            m_file.reportUndecodable();
            return;
        }
        table.insert(member.key(), *associations);
    }
    m_table = std::move(table);
    for (auto query = m_table.cbegin(); query != m_table.cend(); ++query) {
        m_members.set(query.key(), encode(*query));
    }
}

} // namespace quorvantel
