#pragma once

#include "platform/linux/GLibPointers.h"

#include <QByteArray>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace quorvantel::platform {

/// What GIO gives a program that it starts: the launcher's environment, with a startup ID of the
/// program's own in place of the one the launcher may have been started with.
///
/// The ID is that of the Startup Notification Protocol and goes to an entry that announces support
/// for it (StartupNotify); an empty one means that the start was not announced.
GObjectPointer<GAppLaunchContext> makeLaunchContext(const QByteArray& startupId);

/// Has the program of an entry that is made for certain desktops alone (OnlyShowIn), and not for
/// the running one, believe that it runs on its own: some settings programs end at once otherwise.
void presentDesktop(GAppLaunchContext* context, GDesktopAppInfo* entry);

} // namespace quorvantel::platform
