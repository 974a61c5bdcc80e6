#pragma once

#include "search/FrecencyEntry.h"
#include "search/JsonFile.h"
#include "search/JsonMembers.h"

#include <QHash>
#include <QString>

#include <cstdint>
#include <numbers>

namespace quorvantel {

/// How often and how recently each target was launched: one weight per target identifier, which
/// grows by one with each launch and halves every ten days.
///
/// The entries live in memory and in "frecency.json" in the store's directory, a JSON object
/// (RFC 8259) such as `{"org.example.Editor":{"f":2.5,"lastUpdate":785000000}}`. A missing file
/// starts the store empty, and so does one that cannot be read or holds anything else, which logs
/// one line; the next launch overwrites it. A failed save logs one line, and the entries in memory
/// stay authoritative.
///
/// Main thread only. Dates are seconds since 2001-01-01 00:00:00 UTC.
class FrecencyStore {
public:
    /// Weights lose this share of themselves per day, continuously.
    static constexpr double decayRate = std::numbers::ln2 / 10.0;

    /// Loads the entries from the directory, which need not exist.
    explicit FrecencyStore(const QString& storeDirectory);

    /// Registers one launch of a target at `date` and saves.
    void record(const QString& id, double date);

    /// The weight of a target at `now`, 0 for a target that was never launched. A `now` before the
    /// last launch makes the weight larger than it was then.
    double weight(const QString& id, double now) const;

    /// What `entry` weighs at `now`.
    static double weight(const FrecencyEntry& entry, double now);

    const QHash<QString, FrecencyEntry>& entries() const { return m_entries; }

    /// Another number whenever an entry is another one.
    std::uint64_t revision() const { return m_revision; }

private:
    void load();

    JsonFile m_file;
    QHash<QString, FrecencyEntry> m_entries;
    std::uint64_t m_revision = 0;
    /// The entries as they are in the file.
    JsonMembers m_members;
};

} // namespace quorvantel
