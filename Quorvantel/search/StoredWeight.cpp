#include "search/StoredWeight.h"

#include "search/JsonMembers.h"

#include <QJsonObject>

#include <algorithm>
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

} // namespace

std::optional<StoredWeight> decodeWeight(const QJsonValue& value, QLatin1StringView weightName) {
    const QJsonObject object = value.toObject();
    const auto weight = finiteNumber(object.value(weightName));
    const auto lastUpdate = finiteNumber(object.value(lastUpdateName));
    if (object.size() != 2 || !weight || !lastUpdate) {
        return std::nullopt;
    }
    return StoredWeight{*weight, *lastUpdate};
}

std::optional<QByteArray> encodeWeight(const StoredWeight& stored, QLatin1StringView weightName) {
    const auto weight = jsonNumber(stored.weight);
    const auto lastUpdate = jsonNumber(stored.lastUpdate);
    if (!weight || !lastUpdate) {
        return std::nullopt;
    }
    const auto member = [](QLatin1StringView name, const QByteArray& number) -> QByteArray {
        return '"' + QByteArrayView(name) + "\":" + number;
    };
    const QByteArray first = member(weightName, *weight);
    const QByteArray second = member(lastUpdateName, *lastUpdate);
    return '{' + std::min(first, second) + ',' + std::max(first, second) + '}';
}

} // namespace quorvantel
