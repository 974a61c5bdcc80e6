#pragma once

#include <QDBusArgument>
#include <QList>

namespace quorvantel::platform {

/// A key sequence as KDE sends it on the bus: up to four keys of Qt's, one after the other, filled
/// up with 0.
struct KdeKeySequence {
    QList<int> keys;

    static KdeKeySequence of(int key) { return {{key, 0, 0, 0}}; }

    /// 0 when there is none.
    int firstKey() const { return keys.isEmpty() ? 0 : keys.first(); }

    friend bool operator==(const KdeKeySequence&, const KdeKeySequence&) = default;
};

using KdeKeySequences = QList<KdeKeySequence>;

inline QDBusArgument& operator<<(QDBusArgument& argument, const KdeKeySequence& sequence) {
    argument.beginStructure();
    argument << sequence.keys;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, KdeKeySequence& sequence) {
    argument.beginStructure();
    argument >> sequence.keys;
    argument.endStructure();
    return argument;
}

} // namespace quorvantel::platform
