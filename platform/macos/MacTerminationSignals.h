#pragma once

#include <functional>
#include <memory>

namespace quorvantel::platform {

/// Turns the signals by which a system or a shell ends a program, SIGTERM, SIGINT and SIGHUP, into
/// an orderly end.
///
/// While it lives, the signals are delivered to its handler on the main thread, from the event
/// loop; afterwards they have their default effect again.
class MacTerminationSignals {
public:
    explicit MacTerminationSignals(const std::function<void()>& handler);
    ~MacTerminationSignals();
    MacTerminationSignals(const MacTerminationSignals&) = delete;
    MacTerminationSignals& operator=(const MacTerminationSignals&) = delete;

private:
    struct Native;

    std::unique_ptr<Native> m_native;
};

} // namespace quorvantel::platform
