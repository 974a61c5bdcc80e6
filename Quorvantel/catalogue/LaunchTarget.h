#pragma once

#include "platform/Image.h"

#include <QHashFunctions>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <variant>

namespace quorvantel {

/// One thing that the launcher can find and open: an installed application or a settings pane.
///
/// An immutable value. Equality and hashing look at `id` alone, because de-duplication, selection
/// and the ranking stores all speak of a target by its identifier; two targets with the same `id`
/// are equal even if their names or icons differ. All members share their data, so copies are
/// cheap.
class LaunchTarget {
public:
    /// An application, opened by `platform::Workspace::openApplication`.
    struct App {
        QUrl bundleUrl;
        QString bundleIdentifier;
    };

    /// A settings pane, opened by `platform::Workspace::openSettings`.
    struct SettingsPane {
        QUrl url;
    };

    using Kind = std::variant<App, SettingsPane>;

    LaunchTarget(QString id, QString displayName, QStringList searchKeys, platform::Image icon,
                 Kind kind);

    /// The bundle identifier of an application, the whole settings address of a pane.
    const QString& id() const { return m_id; }

    /// The name shown in the result row.
    const QString& displayName() const { return m_displayName; }

    /// The texts that a query is matched against, in order of preference, without duplicates.
    const QStringList& searchKeys() const { return m_searchKeys; }

    const platform::Image& icon() const { return m_icon; }
    const Kind& kind() const { return m_kind; }
    bool isApp() const { return std::holds_alternative<App>(m_kind); }

    friend bool operator==(const LaunchTarget& left, const LaunchTarget& right) {
        return left.m_id == right.m_id;
    }
    friend size_t qHash(const LaunchTarget& target, size_t seed = 0) {
        return ::qHash(target.m_id, seed);
    }

private:
    QString m_id;
    QString m_displayName;
    QStringList m_searchKeys;
    platform::Image m_icon;
    Kind m_kind;
};

} // namespace quorvantel
