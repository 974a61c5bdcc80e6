#include "search/StoredWeight.h"

#include <cmath>

namespace quorvantel {

namespace {

constexpr QLatin1StringView lastUpdateName("lastUpdate");

std::optional<double> finiteNumber(const QJsonValue& value) {
    if (!value.isDouble() || !std::isfinite(value.toDouble())) {
        return std::nullopt;
    }
    return value.toDouble();
}

std::optional<StoredWeight> decodeWeight(const QJsonValue& value, QLatin1StringView weightName) {
    const QJsonObject object = value.toObject();
    const auto weight = finiteNumber(object.value(weightName));
    const auto lastUpdate = finiteNumber(object.value(lastUpdateName));
    if (object.size() != 2 || !weight || !lastUpdate) {
        return std::nullopt;
    }
    return StoredWeight{*weight, *lastUpdate};
}

} // namespace

std::optional<QHash<QString, StoredWeight>> decodeWeights(const QJsonObject& object,
                                                          QLatin1StringView weightName) {
    QHash<QString, StoredWeight> weights;
    for (auto member = object.begin(); member != object.end(); ++member) {
        const auto weight = decodeWeight(member.value(), weightName);
        if (!weight) {
            return std::nullopt;
        }
        weights.insert(member.key(), *weight);
    }
    return weights;
}

std::optional<QJsonObject> encodeWeight(const StoredWeight& stored, QLatin1StringView weightName) {
    if (!std::isfinite(stored.weight) || !std::isfinite(stored.lastUpdate)) {
        return std::nullopt;
    }
    return QJsonObject{{weightName, stored.weight}, {lastUpdateName, stored.lastUpdate}};
}

} // namespace quorvantel
