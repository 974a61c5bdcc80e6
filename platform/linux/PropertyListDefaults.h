#pragma once

#include "platform/UserDefaults.h"

#include <QHash>

namespace quorvantel::platform {

/// Settings in an XML property list.
///
/// The file is read when the object is made. Every write reads it again and changes nothing but the
/// keys set in this run, so that what other versions or other processes stored survives. A damaged
/// file reads as empty and is set aside before the first write; one that cannot be read is never
/// replaced.
class PropertyListDefaults final : public UserDefaults {
public:
    /// "Quorvantel/defaults.plist" in the user's configuration directory.
    static QString standardPath();

    explicit PropertyListDefaults(QString path = standardPath());

    std::optional<Value> value(const QString& key) const override;

    /// Setting `Other` does nothing. A text is stored up to its first null character.
    void setAll(const QMap<QString, Value>& values) override;

private:
    enum class Problem { Reading, Writing };

    bool write();
    void reportOnce(Problem problem, const QString& description);

    QString m_path;
    QHash<QString, Value> m_stored;
    QHash<QString, Value> m_assigned;
    QList<Problem> m_reported;
};

} // namespace quorvantel::platform
