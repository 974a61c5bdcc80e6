#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QLatin1StringView>

#include <optional>

namespace quorvantel {

/// A weight that decays from a moment on, as both ranking stores write it: an object of exactly
/// two numbers, `lastUpdate` and one whose name the store chooses.
struct StoredWeight {
    double weight;
    /// Seconds since 2001-01-01 00:00:00 UTC.
    double lastUpdate;
};

/// Reads a weight. It must be as a store writes it: a missing or an unknown key, or anything but a
/// finite number, yields nothing.
std::optional<StoredWeight> decodeWeight(const QJsonValue& value, QLatin1StringView weightName);

/// The reverse, as compact JSON whose keys are in order; nothing if it holds a number that JSON
/// cannot express. Numbers survive the way to the file and back unchanged.
std::optional<QByteArray> encodeWeight(const StoredWeight& stored, QLatin1StringView weightName);

} // namespace quorvantel
