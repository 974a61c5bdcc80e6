#pragma once

#include <chrono>
#include <string>

namespace quorvantel::platform {

/// Where programs look for the session bus (D-Bus Specification): DBUS_SESSION_BUS_ADDRESS or,
/// without it, the bus of the user in `$XDG_RUNTIME_DIR`. Empty where neither is given: none is
/// started.
std::string sessionBusAddress();

/// Whether a bus keeps its clients waiting, for the connection or for the first word, for as long
/// as `patience`, which is under a second and not zero. The libraries for D-Bus would wait without
/// end.
///
/// Only of sockets on this machine can that be told; false for others, and where there is no bus.
bool isBusSilent(const std::string& address, std::chrono::milliseconds patience);

} // namespace quorvantel::platform
