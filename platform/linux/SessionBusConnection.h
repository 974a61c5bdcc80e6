#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace quorvantel::platform {

/// A connection to the D-Bus session bus that nobody ever waits for.
///
/// It is made in the background, beginning with the object; a bus that accepts a client and then
/// says nothing delays nobody. The bus may begin and end at any time without ending this process.
/// Its replies arrive in the GLib main context.
class SessionBusConnection {
public:
    /// `address` is that of the bus, empty when there is none.
    explicit SessionBusConnection(std::string address);
    SessionBusConnection(const SessionBusConnection&) = delete;
    SessionBusConnection& operator=(const SessionBusConnection&) = delete;
    ~SessionBusConnection();

    /// The connection, which stays this object's; null while there is none, and then another
    /// attempt is made unless one is under way.
    GDBusConnection* get();

private:
    struct State;

    void connect();

    std::string m_address;
    std::shared_ptr<State> m_state;
};

} // namespace quorvantel::platform
