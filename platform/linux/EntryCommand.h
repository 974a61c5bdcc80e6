#pragma once

#include "platform/linux/DesktopEntry.h"

#include <QStringList>

namespace quorvantel::platform {

/// The command line of a desktop entry, the program first, with the field codes of its Exec
/// replaced as for a start without any file or address (Desktop Entry Specification). Empty when
/// the entry has none. `path` is that of the entry's file.
QStringList entryCommand(const DesktopEntry& entry, const QString& path);

} // namespace quorvantel::platform
