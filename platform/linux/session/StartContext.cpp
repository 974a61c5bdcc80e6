#include "platform/linux/session/StartContext.h"

#include "platform/linux/start/BusProbe.h"

#include <QtGlobal>

namespace quorvantel::platform {

namespace {

constexpr auto busVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr std::chrono::milliseconds busPatience{500};

} // namespace

StartContext StartContext::take() {
    StartContext start;
    start.instance = FirstInstance::takeOver();
    start.request = StartRequest::fromEnvironment();
    for (const char* const variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
        qunsetenv(variable);
    }
    if (isBusSilent(sessionBusAddress(), busPatience)) {
        // A null text for a variable that was not set.
        start.silentBus =
            qEnvironmentVariableIsSet(busVariable) ? qgetenv(busVariable) : QByteArray();
        qputenv(busVariable, "unix:path=/dev/null");
    }
    start.accessibilityBus = AccessibilityBus::holdBack();
    return start;
}

void restoreBusAddress(const StartContext& start) {
    if (!start.silentBus) {
        return;
    }
    if (start.silentBus->isNull()) {
        qunsetenv(busVariable);
    } else {
        qputenv(busVariable, *start.silentBus);
    }
}

} // namespace quorvantel::platform
