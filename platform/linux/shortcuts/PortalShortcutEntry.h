#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>
#include <QVariantMap>

namespace quorvantel::platform {

/// A shortcut as the XDG Desktop Portal sends it on the bus.
struct PortalShortcutEntry {
    QString id;
    QVariantMap properties;

    friend bool operator==(const PortalShortcutEntry&, const PortalShortcutEntry&) = default;
};

using PortalShortcutEntries = QList<PortalShortcutEntry>;

inline QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcutEntry& entry) {
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcutEntry& entry) {
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

} // namespace quorvantel::platform
