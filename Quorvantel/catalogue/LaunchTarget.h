#pragma once

#include "platform/Image.h"

#include <QHashFunctions>
#include <QSharedData>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <variant>

namespace quorvantel {

/// One thing that the launcher can find and open: an installed application or a settings pane.
///
/// An immutable value. Equality and hashing look at `id` alone, because de-duplication, selection
/// and the ranking stores all speak of a target by its identifier; two targets with the same `id`
/// are equal even if their names or icons differ. Copies share
/// everything and cost no more than a pointer, since each keystroke ranks them by the thousand.
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
    const QString& id() const { return m_data->id; }

    /// The name shown in the result row.
    const QString& displayName() const { return m_data->displayName; }

    /// The texts that a query is matched against, in order of preference, without duplicates.
    const QStringList& searchKeys() const { return m_data->searchKeys; }

    const platform::Image& icon() const { return m_data->icon; }
    const Kind& kind() const { return m_data->kind; }
    bool isApp() const { return std::holds_alternative<App>(kind()); }

    friend bool operator==(const LaunchTarget& left, const LaunchTarget& right) {
        return left.m_data == right.m_data || left.id() == right.id();
    }
    friend size_t qHash(const LaunchTarget& target, size_t seed = 0) {
        return ::qHash(target.id(), seed);
    }

private:
    struct Data : QSharedData {
        Data(QString id, QString displayName, QStringList searchKeys, platform::Image icon,
             Kind kind);

        QString id;
        QString displayName;
        QStringList searchKeys;
        platform::Image icon;
        Kind kind;
    };

    QExplicitlySharedDataPointer<const Data> m_data;
};

} // namespace quorvantel
