#pragma once

#include "platform/HotKeyState.h"
#include "platform/linux/shortcuts/Accelerator.h"

#include <QStringList>

namespace quorvantel::platform {

/// What the user can put into the configuration of the desktop so that the accelerator runs
/// `command`, a command line as for a shell. For a desktop whose configuration is not known it is
/// the command alone. `desktops` is the list of the session's names.
HotKeyLeftToUser userBinding(const QStringList& desktops, const Accelerator& accelerator,
                             const QString& command);

} // namespace quorvantel::platform
