#pragma once

#include <QByteArray>

#include <functional>

namespace quorvantel::platform {

/// What the desktop gave a caller so that a window may come to the front on its behalf. Where it
/// gave only one of the two, it stands for the other as well; both are empty where it gave none.
struct CallerToken {
    /// Startup Notification Protocol.
    QByteArray startupId;
    /// XDG Activation Protocol.
    QByteArray activationToken;
};

/// Does something on behalf of whoever asked the running launcher for it, with what the caller got
/// from the desktop for that purpose.
class CallerActivation {
public:
    virtual ~CallerActivation() = default;

    /// Runs the task as at the time of the user's deed that the token tells, so that a window may
    /// come to the front, and then has the desktop no longer wait for one. A token that is empty or
    /// tells nothing changes nothing.
    virtual void during(const CallerToken& token, const std::function<void()>& task) = 0;
};

} // namespace quorvantel::platform
