#pragma once

#include "support/ChildProcess.h"

#include <QByteArray>
#include <QSize>

namespace quorvantel::testing {

/// An X server of the test's own (Xvfb) on a display that nobody else uses, with XTEST for real
/// input events. It keeps its state when its last client leaves, and ends with this object.
class XServer {
public:
    /// Returns once the server accepts clients. Throws std::runtime_error when it does not.
    explicit XServer(QSize pixels = {1280, 800});

    /// What clients take as DISPLAY, such as ":7".
    QByteArray display() const { return m_display; }

    /// Sends the server a signal. SIGKILL makes its clients lose it; SIGSTOP makes them wait.
    void signal(int number) { m_process.signal(number); }

private:
    ChildProcess m_process;
    QByteArray m_display;
};

} // namespace quorvantel::testing
