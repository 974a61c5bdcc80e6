#include "platform/linux/session/StartContext.h"

#include "platform/linux/start/BusProbe.h"

#include <QtGlobal>

namespace quorvantel::platform {

namespace {

constexpr std::chrono::milliseconds busPatience{500};

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
    if (isBusSilent(start.busAddress, busPatience)) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
    }
    start.accessibilityBus = AccessibilityBus::holdBack();
    return start;
}

} // namespace quorvantel::platform
