#pragma once

#include "support/ChildProcess.h"

#include <QString>

namespace quorvantel::testing {

/// A D-Bus session bus of the test's own (dbus-daemon), which ends with this object.
class SessionBus {
public:
    /// Puts the bus's socket into a folder. Returns once the bus accepts clients; throws
    /// std::runtime_error when it does not.
    explicit SessionBus(const QString& directory);

    /// What clients take as DBUS_SESSION_BUS_ADDRESS.
    QString address() const { return m_address; }

    /// Sends the bus a signal, such as SIGSTOP.
    void signal(int number) { m_process.signal(number); }

private:
    ChildProcess m_process;
    QString m_address;
};

} // namespace quorvantel::testing
