#pragma once

#include "platform/Directories.h"

namespace quorvantel::platform {

/// The user's own folders, as `NSFileManager` names them. None has a trailing slash.
class MacDirectories final : public Directories {
public:
    QString applicationSupport() const override;

    /// What launchd starts when the user logs in.
    QString launchAgents() const;
};

} // namespace quorvantel::platform
