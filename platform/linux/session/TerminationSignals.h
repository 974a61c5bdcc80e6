#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace quorvantel::platform {

/// Turns the signals by which a session or a shell ends a program, SIGTERM, SIGINT and SIGHUP, into
/// an orderly end.
///
/// One instance at a time. While it lives, the signals are delivered to its handler on the main
/// thread; afterwards they have their default effect again.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> handler);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace quorvantel::platform
