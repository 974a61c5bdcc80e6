#pragma once

#include <QHash>
#include <QJsonObject>
#include <QLatin1StringView>
#include <QString>

#include <optional>

namespace quorvantel {

/// A weight that decays from a moment on, as both ranking stores write it: an object of exactly
/// two numbers, `lastUpdate` and one whose name the store chooses.
struct StoredWeight {
    double weight;
    /// Seconds since 2001-01-01 00:00:00 UTC.
    double lastUpdate;
};

/// Reads an object of weights. All of it must be as a store writes it: a value with a missing or
/// an unknown key, or with anything but a finite number, yields nothing.
std::optional<QHash<QString, StoredWeight>> decodeWeights(const QJsonObject& object,
                                                          QLatin1StringView weightName);

/// The reverse for one weight; nothing if it holds a number that JSON cannot express. Numbers
/// survive the way to the file and back unchanged.
std::optional<QJsonObject> encodeWeight(const StoredWeight& stored, QLatin1StringView weightName);

} // namespace quorvantel
