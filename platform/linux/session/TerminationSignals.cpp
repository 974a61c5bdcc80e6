#include "platform/linux/session/TerminationSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

/// A signal handler can do little more than write to a pipe, which the event loop reads.
int writeEnd = -1;

void writeByte(int /*signal*/) {
    // The signal may come between a failed call and the look at its error.
    const int interruptedError = errno;
    const char byte = 0;
    // A full pipe already holds what the event loop needs to know.
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, sizeof byte);
    errno = interruptedError;
}

void setDisposition(void (*disposition)(int)) {
    struct sigaction action {};
    action.sa_handler = disposition;
    action.sa_flags = SA_RESTART;
    for (const int signal : endingSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    m_readEnd = ends[0];
    writeEnd = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [handler = std::move(handler), readEnd = m_readEnd] {
                         char byte = 0;
                         if (::read(readEnd, &byte, sizeof byte) == sizeof byte) {
                             handler();
                         }
                     });
    setDisposition(writeByte);
}

TerminationSignals::~TerminationSignals() {
    if (!m_notifier) {
        return;
    }
    setDisposition(SIG_DFL);
    m_notifier.reset();
    ::close(m_readEnd);
    ::close(std::exchange(writeEnd, -1));
}

} // namespace quorvantel::platform
