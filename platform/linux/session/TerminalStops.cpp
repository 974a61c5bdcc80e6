#include "platform/linux/session/TerminalStops.h"

#include <array>
#include <csignal>

namespace quorvantel::platform {

void outlastTerminalStops() {
    // Programs inherit that a signal is ignored or blocked, but no handler. Interrupted calls are
    // not restarted, for a write that the terminal does not want would be tried for ever.
    struct sigaction action {};
    action.sa_handler = [](int) {};
    constexpr std::array stops{SIGTSTP, SIGTTIN, SIGTTOU};
    for (const int signal : stops) {
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace quorvantel::platform
