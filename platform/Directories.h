#pragma once

#include <QString>

namespace quorvantel::platform {

/// The identifier under which the system knows the launcher itself.
inline constexpr QStringView launcherIdentifier = u"org.quorvantel.Quorvantel";

/// Where the system keeps the user's files.
class Directories {
public:
    virtual ~Directories() = default;

    /// The folder for what applications store, without a trailing slash; it need not exist.
    virtual QString applicationSupport() const = 0;
};

} // namespace quorvantel::platform
