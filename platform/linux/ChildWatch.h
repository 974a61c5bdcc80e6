#pragma once

#include "platform/linux/LaunchReport.h"

#include <sys/types.h>

namespace quorvantel::platform {

/// Waits, in the GLib main context, for the end of a child process, which leaves no zombie, and
/// then reports whether its program ran.
///
/// GIO executes a program through a helper, "gio-launch-desktop" or a shell, which takes the
/// program's name when that is executed. A child that ends under the helper's own name never ran
/// the program. One line is logged about a program that ran and failed at once.
void watchChild(pid_t child, LaunchReport report);

} // namespace quorvantel::platform
