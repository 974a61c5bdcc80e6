#pragma once

#include "platform/Platform.h"
#include "shell/AppDelegate.h"

namespace quorvantel {

/// The application object: owns the delegate and runs the event loop until the session or a signal
/// ends it.
class QuorvantelApp {
public:
    /// The application object of the toolkit must exist.
    explicit QuorvantelApp(platform::Platform& platform);

    /// Returns the exit status of the process.
    int run();

private:
    /// Logs how the launcher is summoned, once that is known, for whoever started it in a terminal.
    void announceHotKey();

    platform::Platform& m_platform;
    AppDelegate m_delegate;
    bool m_hasAnnounced = false;
};

} // namespace quorvantel
