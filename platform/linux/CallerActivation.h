#pragma once

#include <QByteArray>

#include <functional>

namespace quorvantel::platform {

/// Does something on behalf of whoever asked the running launcher for it, with what the caller got
/// from the desktop for that purpose.
class CallerActivation {
public:
    virtual ~CallerActivation() = default;

    /// Runs the task as at the time of the user's deed that `startupId` tells, so that a window may
    /// come to the front, and then has the desktop no longer wait for one. An ID that is empty or
    /// tells nothing changes nothing.
    virtual void during(const QByteArray& startupId, const std::function<void()>& task) = 0;
};

} // namespace quorvantel::platform
