#pragma once

namespace quorvantel::platform {

/// Whether the desktop starts the launcher when the user logs in. Off until the user wants it, who
/// may also change it in the desktop's own settings.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual bool isEnabled() const = 0;

    /// Tells the user what holds from now on, or logs why it can't be changed.
    virtual void setEnabled(bool isEnabled) = 0;
};

} // namespace quorvantel::platform
