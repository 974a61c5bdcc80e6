#pragma once

#include "support/ChildProcess.h"
#include "support/XConnection.h"

#include <QString>

namespace quorvantel::testing {

/// A window manager on the test's display, so that there is an active window to leave alone.
class WindowManager {
public:
    /// Starts the program `name`, with its standard settings, and returns once it manages the
    /// display (`_NET_SUPPORTING_WM_CHECK`, Extended Window Manager Hints). Throws
    /// std::runtime_error when it does not. Those that keep their settings on a session bus get
    /// them from `busAddress`.
    explicit WindowManager(const XConnection& connection, const QByteArray& display,
                           const QString& name = QStringLiteral("openbox"),
                           const QString& busAddress = {});

    /// Sends the window manager a signal, such as SIGSTOP.
    void signal(int number) { m_process.signal(number); }

private:
    ChildProcess m_process;
};

} // namespace quorvantel::testing
