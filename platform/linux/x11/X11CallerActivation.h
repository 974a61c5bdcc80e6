#pragma once

#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11UserTime.h"

#include <QByteArray>

#include <functional>
#include <memory>

struct SnDisplay;

namespace quorvantel::platform {

/// Does something on behalf of whoever asked the running launcher for it, with what the caller got
/// from the desktop for that purpose (Startup Notification Protocol).
class X11CallerActivation {
public:
    /// `userTime` must outlive this object.
    X11CallerActivation(const X11Display& display, X11UserTime& userTime);

    /// Runs the task as at the time of the user's deed that `startupId` tells, so that a window may
    /// come to the front, and then has the desktop no longer wait for one. An ID that is empty or
    /// tells no time changes nothing.
    void during(const QByteArray& startupId, const std::function<void()>& task);

private:
    struct Unref {
        void operator()(SnDisplay* display) const;
    };

    X11Display m_display;
    X11UserTime& m_userTime;
    std::unique_ptr<SnDisplay, Unref> m_notifications;
};

} // namespace quorvantel::platform
