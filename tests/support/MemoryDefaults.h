#pragma once

#include "platform/UserDefaults.h"

#include <QMap>
#include <QStringList>

namespace quorvantel::testing {

/// Defaults that live in memory and write down the order of the writes.
class MemoryDefaults : public platform::UserDefaults {
public:
    std::optional<Value> value(const QString& key) const override {
        const auto found = values.constFind(key);
        return found == values.constEnd() ? std::nullopt : std::optional(*found);
    }

    void set(const QString& key, const Value& value) override {
        values.insert(key, value);
        writes << key;
    }

    QMap<QString, Value> values;
    QStringList writes;
};

} // namespace quorvantel::testing
