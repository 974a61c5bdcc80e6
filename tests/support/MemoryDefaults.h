#pragma once

#include "platform/UserDefaults.h"

#include <QMap>
#include <QStringList>

namespace quorvantel::testing {

/// Defaults that live in memory and write down the keys of each write.
class MemoryDefaults : public platform::UserDefaults {
public:
    std::optional<Value> value(const QString& key) const override {
        const auto found = values.constFind(key);
        return found == values.constEnd() ? std::nullopt : std::optional(*found);
    }

    void setAll(const QMap<QString, Value>& written) override {
        values.insert(written);
        writes << written.keys().join(u'+');
    }

    QMap<QString, Value> values;
    QStringList writes;
};

} // namespace quorvantel::testing
