#pragma once

#include "platform/Platform.h"

#include <functional>

namespace quorvantel::platform {

/// Runs the launcher as a program of this system, from `main`, and returns the exit status of the
/// process.
///
/// Makes the process ready, then the toolkit's application object and the platform that `run` gets;
/// both outlive the call of it. While it lasts, whatever the system ends a program by makes the
/// event loop return. `run` is not called, and the status is a failure, where the session has no
/// display that the launcher can work on, which one log line tells.
int runApplication(int argc, char** argv, const std::function<int(Platform&)>& run);

} // namespace quorvantel::platform
