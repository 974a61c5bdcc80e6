#pragma once

#include "support/ChildProcess.h"
#include "support/XConnection.h"

#include <QString>

namespace quorvantel::testing {

/// A window manager on the test's display, so that there is an active window to leave alone.
class WindowManager {
public:
    /// Starts the program `name` and returns once it manages the display
    /// (`_NET_SUPPORTING_WM_CHECK`, Extended Window Manager Hints). Throws std::runtime_error when
    /// it does not.
    explicit WindowManager(const XConnection& connection, const QByteArray& display,
                           const QString& name = QStringLiteral("openbox"));

private:
    ChildProcess m_process;
};

} // namespace quorvantel::testing
