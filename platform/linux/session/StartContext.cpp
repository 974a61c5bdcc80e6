#include "platform/linux/session/StartContext.h"

#include "platform/linux/start/BusProbe.h"

#include <QFile>

namespace quorvantel::platform {

namespace {

constexpr auto busVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr std::chrono::milliseconds busPatience{500};

/// Whether nothing says where a bus is. The library for D-Bus would have a program start one, which
/// stays behind, and wait for it.
bool isBusUnknown() {
    return qEnvironmentVariableIsEmpty(busVariable) &&
           !QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

StartContext StartContext::take() {
    StartContext start;
    start.instance = FirstInstance::takeOver();
    start.request = StartRequest::fromEnvironment();
    // The last one would be the session manager's name for the programs that are launched, too.
    for (const char* const variable :
         {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "DESKTOP_AUTOSTART_ID"}) {
        qunsetenv(variable);
    }
    start.environment = LaunchEnvironment();
    start.busAddress = sessionBusAddress();
    if (isBusUnknown() || isBusSilent(start.busAddress, busPatience)) {
        qputenv(busVariable, "unix:path=/dev/null");
    }
    start.accessibilityBus = AccessibilityBus::holdBack();
    return start;
}

} // namespace quorvantel::platform
