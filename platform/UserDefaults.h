#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <cstdint>
#include <optional>
#include <variant>

class QVariant;

namespace quorvantel::platform {

/// The user's small typed settings: numbers, strings, booleans and data under text keys.
///
/// Main thread only. A read never fails: what is missing is absent. A write is kept in memory at
/// once and written to disk before the call returns; when that fails, one line is logged and the
/// value holds for the rest of the run. Keys that nobody here knows survive every write.
class UserDefaults {
public:
    /// A value in its stored type. Whole numbers beyond the signed 64-bit range read as the nearest
    /// real ones, and types that no setting uses (dates, lists, dictionaries) as `Other`.
    struct Other {
        friend bool operator==(const Other&, const Other&) = default;
    };
    using Value = std::variant<bool, std::int64_t, double, QString, QByteArray, Other>;

    virtual ~UserDefaults() = default;

    virtual std::optional<Value> value(const QString& key) const = 0;

    /// Sets values that belong together, in one write: a crash leaves all of them or none.
    virtual void setAll(const QMap<QString, Value>& values) = 0;

    void set(const QString& key, const Value& value) { setAll({{key, value}}); }
};

/// A value of a property list as a setting, from the types that `BundleReader` names.
UserDefaults::Value defaultsValue(const QVariant& value);

/// A stored value where a whole number is expected, whatever type it was stored as: the whole part
/// of a real number, the number that a text begins with, 1 for true; 0 for what has none. A number
/// that is too large, or not a number, is the largest.
std::int64_t integerValue(const UserDefaults::Value& value);

/// A stored value where a boolean is expected: true for "yes", "true", in any case, and for every
/// number but zero, also as a text.
bool booleanValue(const UserDefaults::Value& value);

} // namespace quorvantel::platform
