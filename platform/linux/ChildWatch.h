#pragma once

#include <sys/types.h>

namespace quorvantel::platform {

/// Waits, in the GLib main context, for the end of a child process, which leaves no zombie. One
/// line is logged about a program that failed at once.
void watchChild(pid_t child);

} // namespace quorvantel::platform
