#pragma once

#include <QStringList>

namespace quorvantel::platform {

/// What a command line begins with to be run in a terminal: the first known terminal emulator that
/// is installed, those first that the user or the administrator chose, and the option behind which
/// it takes a command. Empty when none is installed.
QStringList terminalCommand();

} // namespace quorvantel::platform
