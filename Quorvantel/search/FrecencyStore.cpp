#include "search/FrecencyStore.h"

#include "search/Days.h"
#include "search/StoredWeight.h"

#include <bit>
#include <cmath>
#include <cstdint>

namespace quorvantel {

static_assert(std::bit_cast<std::uint64_t>(FrecencyStore::decayRate) == 0x3FB1BE9BFF2E94BF);

namespace {

constexpr QLatin1StringView weightName("f");

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
    save();
}

double FrecencyStore::weight(const QString& id, double now) const {
    const auto known = m_entries.constFind(id);
    if (known == m_entries.cend()) {
        return 0.0;
    }
    return known->f * std::exp(-decayRate * (now - known->lastUpdate) / secondsPerDay);
}

void FrecencyStore::load() {
    const std::optional<QJsonObject> root = m_file.load();
    if (!root) {
        return;
    }
    const auto weights = decodeWeights(*root, weightName);
    if (!weights) {
        m_file.reportUndecodable();
        return;
    }
    for (auto stored = weights->cbegin(); stored != weights->cend(); ++stored) {
        m_entries.insert(stored.key(), {stored->weight, stored->lastUpdate});
    }
}

void FrecencyStore::save() const {
    QJsonObject root;
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        const auto encoded = encodeWeight({entry->f, entry->lastUpdate}, weightName);
        if (!encoded) {
            m_file.reportUnencodable();
            return;
        }
        root.insert(entry.key(), *encoded);
    }
    m_file.save(root);
}

} // namespace quorvantel
