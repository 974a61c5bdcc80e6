#include "search/FrecencyStore.h"

#include "search/Days.h"
#include "search/StoredWeight.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace quorvantel {

static_assert(std::bit_cast<std::uint64_t>(FrecencyStore::decayRate) == 0x3FB1BE9BFF2E94BF);

namespace {

constexpr QLatin1StringView weightName("f");

std::optional<QByteArray> encode(const FrecencyEntry& entry) {
    return encodeWeight({entry.f, entry.lastUpdate}, weightName);
}

} // namespace

FrecencyStore::FrecencyStore(const QString& storeDirectory)
    : m_file(storeDirectory + u"/frecency.json") {
    load();
}

void FrecencyStore::record(const QString& id, double date) {
    FrecencyEntry updated{1.0, date};
    if (const auto known = m_entries.constFind(id); known != m_entries.cend()) {
        const double days = (date - known->lastUpdate) / secondsPerDay;
        updated.f = known->f * std::exp(-decayRate * days) + 1.0;
    }
    m_entries.insert(id, updated);
    ++m_revision;
    m_members.set(id, encode(updated));
    m_file.save(m_members.text());
}

double FrecencyStore::weight(const QString& id, double now) const {
    const auto known = m_entries.constFind(id);
    return known == m_entries.cend() ? 0.0 : weight(*known, now);
}

double FrecencyStore::weight(const FrecencyEntry& entry, double now) {
    return entry.f * std::exp(-decayRate * (now - entry.lastUpdate) / secondsPerDay);
}

void FrecencyStore::load() {
    const std::optional<QJsonObject> root = m_file.load();
    if (!root) {
        return;
    }
    QHash<QString, FrecencyEntry> entries;
    entries.reserve(root->size());
    for (auto member = root->begin(); member != root->end(); ++member) {
        const auto stored = decodeWeight(member.value(), weightName);
        if (!stored) {
            m_file.reportUndecodable();
            return;
        }
        entries.insert(member.key(), {stored->weight, stored->lastUpdate});
    }
    m_entries = std::move(entries);
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        m_members.set(entry.key(), encode(*entry));
    }
}

} // namespace quorvantel
