#pragma once

#include <QString>

namespace quorvantel::platform {

/// The command line, as for a shell, of a further start of the launcher: the program that users
/// run, where it is installed beside this one.
QString startCommand();

/// A program's path as a shell reads it, quoted where it has to be.
QString quotedForShell(const QString& path);

} // namespace quorvantel::platform
