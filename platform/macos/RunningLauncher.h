#pragma once

namespace quorvantel::platform {

/// Opens the launcher that runs in this login session already, if one does, as the Finder would by
/// its icon. Returns false where none does.
///
/// Of what is opened the system itself keeps one instance; this is about a copy of the bundle and
/// about a program that was started by its path. It is for a process that has no application object
/// yet, and may wait for the system's answer.
bool openRunningLauncher();

} // namespace quorvantel::platform
