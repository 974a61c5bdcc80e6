#include "platform/macos/MacTerminationSignals.h"

#include <dispatch/dispatch.h>

#include <array>
#include <csignal>
#include <vector>

namespace quorvantel::platform {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

} // namespace

struct MacTerminationSignals::Native {
    std::vector<dispatch_source_t> sources;
};

MacTerminationSignals::MacTerminationSignals(const std::function<void()>& handler)
    : m_native(std::make_unique<Native>()) {
    const std::function<void()> ending = handler;
    for (const int number : endingSignals) {
        // A source only sees what the signal's own effect leaves of the process.
        std::signal(number, SIG_IGN);
        dispatch_source_t source =
            dispatch_source_create(DISPATCH_SOURCE_TYPE_SIGNAL, static_cast<uintptr_t>(number), 0,
                                   dispatch_get_main_queue());
        dispatch_source_set_event_handler(source, ^{
          ending();
        });
        dispatch_activate(source);
        m_native->sources.push_back(source);
    }
}

MacTerminationSignals::~MacTerminationSignals() {
    for (dispatch_source_t source : m_native->sources) {
        dispatch_source_cancel(source);
    }
    for (const int number : endingSignals) {
        std::signal(number, SIG_DFL);
    }
}

} // namespace quorvantel::platform
