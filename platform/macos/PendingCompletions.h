#pragma once

#include "platform/Workspace.h"

#include <cstdint>
#include <map>

namespace quorvantel::platform {

/// Completions that wait for the system's report, which may come on any thread, more than once or
/// never.
///
/// The report carries a number instead of the completion, so that a completion, and all that it
/// holds, is called and destroyed on the main thread. Main thread only.
class PendingCompletions {
public:
    using Number = std::uint64_t;

    Number add(Workspace::Completion completion);

    /// Calls the completion with the number, unless that has been done before.
    void finish(Number number, const QString& error);

private:
    std::map<Number, Workspace::Completion> m_waiting;
    Number m_latest = 0;
};

} // namespace quorvantel::platform
