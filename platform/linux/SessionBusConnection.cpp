#include "platform/linux/SessionBusConnection.h"

#include "platform/linux/GLibPointers.h"

#include <utility>

namespace quorvantel::platform {

struct SessionBusConnection::State {
    GObjectPointer<GDBusConnection> connection;
    bool isConnecting = false;
    GObjectPointer<GCancellable> cancellable{g_cancellable_new()};
};

SessionBusConnection::SessionBusConnection(std::string address)
    : m_address(std::move(address)), m_state(std::make_shared<State>()) {
    connect();
}

SessionBusConnection::~SessionBusConnection() {
    g_cancellable_cancel(m_state->cancellable.get());
}

GDBusConnection* SessionBusConnection::get() {
    GDBusConnection* const connection = m_state->connection.get();
    if (connection != nullptr && g_dbus_connection_is_closed(connection) == FALSE) {
        return connection;
    }
    m_state->connection.reset();
    connect();
    return nullptr;
}

void SessionBusConnection::connect() {
    if (m_address.empty() || m_state->isConnecting) {
        return;
    }
    m_state->isConnecting = true;
    const auto connected = [](GObject* /*source*/, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<State>> owner(static_cast<std::weak_ptr<State>*>(data));
        GObjectPointer<GDBusConnection> connection(
            g_dbus_connection_new_for_address_finish(result, nullptr));
        if (const auto state = owner->lock()) {
            state->isConnecting = false;
            state->connection = std::move(connection);
        }
    };
    g_dbus_connection_new_for_address(
        m_address.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, m_state->cancellable.get(), connected, new std::weak_ptr<State>(m_state));
}

} // namespace quorvantel::platform
