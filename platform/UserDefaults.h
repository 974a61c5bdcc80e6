#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <variant>

namespace quorvantel::platform {

/// The user's small typed settings: numbers, strings, booleans and data under text keys.
///
/// Main thread only. A read never fails: what is missing is absent. A write is kept in memory at
/// once and written to disk before the call returns; when that fails, one line is logged and the
/// value holds for the rest of the run. Keys that nobody here knows survive every write.
class UserDefaults {
public:
    /// A value in its stored type. Whole numbers outside the signed 64-bit range, and types that no
    /// setting uses (dates, lists, dictionaries), read as `Other`.
    struct Other {
        friend bool operator==(const Other&, const Other&) = default;
    };
    using Value = std::variant<bool, std::int64_t, double, QString, QByteArray, Other>;

    virtual ~UserDefaults() = default;

    virtual std::optional<Value> value(const QString& key) const = 0;
    virtual void set(const QString& key, const Value& value) = 0;
};

/// The defaults of this application for the current user; opened on first use and kept until the
/// program ends.
UserDefaults& standardUserDefaults();

} // namespace quorvantel::platform
