#pragma once

#include "platform/linux/GLibPointers.h"

#include <QByteArray>

#include <gio/gio.h>

namespace quorvantel::platform {

/// What GIO gives a program that it starts: the launcher's environment, with a startup ID of the
/// program's own in place of the one the launcher may have been started with.
///
/// The ID is that of the Startup Notification Protocol and goes to an entry that announces support
/// for it (StartupNotify); an empty one means that the start was not announced.
GObjectPointer<GAppLaunchContext> makeLaunchContext(const QByteArray& startupId);

} // namespace quorvantel::platform
