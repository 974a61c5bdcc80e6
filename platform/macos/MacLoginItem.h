#pragma once

#include "platform/LoginItem.h"

namespace quorvantel::platform {

/// An agent that launchd starts when the user logs in (launchd.plist(5)): a file in the user's
/// "Library/LaunchAgents", in force from the next login on.
///
/// The system tells the user of a new one and lists it among the login items of its settings, under
/// the launcher's name. Whether the user forbade it there is not to be seen from here.
class MacLoginItem final : public LoginItem {
public:
    /// Whether there is an agent that starts this copy of the launcher.
    bool isEnabled() const override;
    void setEnabled(bool isEnabled) override;
};

} // namespace quorvantel::platform
