#include "platform/linux/session/AccessibilityBus.h"

#include "platform/linux/GLibPointers.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QPointer>
#include <QtCore/private/qobject_p.h>
#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <gio/gio.h>

#include <functional>
#include <limits>
#include <memory>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr auto variable = "AT_SPI_BUS_ADDRESS";
const QString service = QStringLiteral("org.a11y.Bus");

/// Nothing waits for an answer, so it may come at any time.
constexpr int withoutLimit = std::numeric_limits<int>::max();

using Proven = std::function<void()>;

/// Asks the registry of a bus what the bridge asks when it connects.
void askRegistry(GDBusConnection* bus, std::unique_ptr<Proven> proven) {
    const auto replied = [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Proven> answered(static_cast<Proven*>(data));
        GVariant* const reply =
            g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr);
        if (reply != nullptr) {
            g_variant_unref(reply);
            (*answered)();
        }
    };
    g_dbus_connection_call(bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                           "org.a11y.atspi.Registry", "GetRegisteredEvents", nullptr, nullptr,
                           G_DBUS_CALL_FLAGS_NONE, withoutLimit, nullptr, replied,
                           proven.release());
}

/// Calls `proven` once the bus and its registry have answered, if ever.
void prove(const QString& address, Proven proven) {
    const auto connected = [](GObject* /*source*/, GAsyncResult* result, gpointer data) {
        std::unique_ptr<Proven> reached(static_cast<Proven*>(data));
        const GObjectPointer<GDBusConnection> bus(
            g_dbus_connection_new_for_address_finish(result, nullptr));
        if (bus) {
            askRegistry(bus.get(), std::move(reached));
        }
    };
    g_dbus_connection_new_for_address(
        address.toUtf8().constData(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, connected, new Proven(std::move(proven)));
}

/// The part of the bridge that connects it; null when the toolkit has another bridge than this one.
QObject* bridgeConnection() {
    auto* const bridge =
        dynamic_cast<QObject*>(QGuiApplicationPrivate::platformIntegration()->accessibility());
    const QObjectList senders =
        bridge == nullptr ? QObjectList() : QObjectPrivate::get(bridge)->senderList();
    for (QObject* const sender : senders) {
        if (sender->inherits("DBusConnection")) {
            return sender;
        }
    }
    return nullptr;
}

} // namespace

AccessibilityBus::Address AccessibilityBus::holdBack() {
    Address address =
        qEnvironmentVariableIsSet(variable) ? Address(qgetenv(variable)) : std::nullopt;
    qputenv(variable, "disabled:");
    return address;
}

AccessibilityBus::AccessibilityBus(const Address& address)
    : m_watcher(service, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration) {
    if (address && !address->isEmpty()) {
        connectWhenProven(QString::fromLocal8Bit(*address));
        return;
    }
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this,
            &AccessibilityBus::askForAddress);
    askForAddress();
}

void AccessibilityBus::askForAddress() {
    QDBusMessage call = QDBusMessage::createMethodCall(service, QStringLiteral("/org/a11y/bus"),
                                                       service, QStringLiteral("GetAddress"));
    // It is not for a launcher to start the accessibility of a desktop that does without.
    call.setAutoStartService(false);
    auto* const watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, withoutLimit), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QString> reply = *finished;
                finished->deleteLater();
                if (reply.isValid() && !reply.value().isEmpty()) {
                    connectWhenProven(reply.value());
                }
            });
}

void AccessibilityBus::connectWhenProven(const QString& address) {
    prove(address, [self = QPointer(this), address] {
        if (self) {
            self->connectBridge(address);
        }
    });
}

void AccessibilityBus::connectBridge(const QString& address) {
    QObject* const connection = bridgeConnection();
    if (connection == nullptr || std::exchange(m_isConnected, true)) {
        return;
    }
    // By the name under which the bridge keeps its connection, the idle one until now.
    QDBusConnection::disconnectFromBus(QStringLiteral("a11y"));
    QMetaObject::invokeMethod(connection, "connectA11yBus", Q_ARG(QString, address));
}

} // namespace quorvantel::platform
