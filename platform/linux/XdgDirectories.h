#pragma once

#include "platform/Directories.h"

namespace quorvantel::platform {

/// The user's folders by the XDG Base Directory Specification, as the environment has them now.
/// None has a trailing slash.
class XdgDirectories final : public Directories {
public:
    /// For data: `$XDG_DATA_HOME`.
    QString applicationSupport() const override;

    /// For settings: `$XDG_CONFIG_HOME`.
    QString configuration() const;
};

} // namespace quorvantel::platform
