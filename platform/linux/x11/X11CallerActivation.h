#pragma once

#include "platform/linux/CallerActivation.h"
#include "platform/linux/x11/X11Display.h"
#include "platform/linux/x11/X11UserTime.h"

#include <memory>

struct SnDisplay;

namespace quorvantel::platform {

/// Takes the startup ID of whoever asks (Startup Notification Protocol). One that tells no time
/// changes nothing.
class X11CallerActivation final : public CallerActivation {
public:
    /// `userTime` must outlive this object.
    X11CallerActivation(const X11Display& display, X11UserTime& userTime);

    void during(const CallerToken& token, const std::function<void()>& task) override;

private:
    struct Unref {
        void operator()(SnDisplay* display) const;
    };

    X11Display m_display;
    X11UserTime& m_userTime;
    std::unique_ptr<SnDisplay, Unref> m_notifications;
};

} // namespace quorvantel::platform
