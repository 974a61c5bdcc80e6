#pragma once

#include <QString>

namespace quorvantel::platform {

/// The identifier under which the system knows the launcher itself.
inline constexpr QStringView launcherIdentifier = u"org.quorvantel.Quorvantel";

/// The folder for the user's application data, without a trailing slash: Application Support on
/// macOS, `$XDG_DATA_HOME` on Linux (XDG Base Directory Specification).
QString applicationSupportDirectory();

/// The folder for the user's settings, without a trailing slash: `$XDG_CONFIG_HOME` on Linux.
QString configurationDirectory();

} // namespace quorvantel::platform
