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
    platform::Platform& m_platform;
    AppDelegate m_delegate;
};

} // namespace quorvantel
