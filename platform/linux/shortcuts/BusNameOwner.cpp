#include "platform/linux/shortcuts/BusNameOwner.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace quorvantel::platform {

namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

} // namespace

BusNameOwner::BusNameOwner(QDBusConnection bus, QString name)
    : m_bus(std::move(bus)), m_name(std::move(name)) {
    // With a sender's name, Qt would ask the bus for its owner and wait for the answer.
    m_bus.connect({}, busPath, busService, QStringLiteral("NameOwnerChanged"), {m_name}, {}, this,
                  SLOT(ownerChanged(QDBusMessage)));
    ask();
}

void BusNameOwner::ask() {
    QDBusMessage call = QDBusMessage::createMethodCall(busService, busPath, busService,
                                                       QStringLiteral("GetNameOwner"));
    call << m_name;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QString> reply = *finished;
                finished->deleteLater();
                // A change that came meanwhile is newer.
                if (!m_isKnown) {
                    set(reply.isError() ? QString() : reply.value());
                }
            });
}

void BusNameOwner::ownerChanged(const QDBusMessage& signal) {
    const QList<QVariant> arguments = signal.arguments();
    if (signal.service() == busService && arguments.size() == 3) {
        set(arguments.at(2).toString());
    }
}

void BusNameOwner::set(const QString& owner) {
    if (std::exchange(m_isKnown, true) && m_owner == owner) {
        return;
    }
    m_owner = owner;
    Q_EMIT changed();
}

} // namespace quorvantel::platform
