#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

namespace quorvantel::platform {

/// Who holds a well-known name on a message bus, followed without ever waiting for the bus.
class BusNameOwner : public QObject {
    Q_OBJECT

public:
    BusNameOwner(QDBusConnection bus, QString name);

    /// The unique name of the connection; empty while nobody has the name.
    const QString& owner() const { return m_owner; }

Q_SIGNALS:
    /// The first answer, and every change after it.
    void changed();

private Q_SLOTS:
    void ownerChanged(const QDBusMessage& signal);

private:
    void ask();
    void set(const QString& owner);

    QDBusConnection m_bus;
    QString m_name;
    QString m_owner;
    bool m_isKnown = false;
};

} // namespace quorvantel::platform
