#pragma once

#include "platform/linux/start/FileDescriptor.h"

namespace quorvantel::platform {

/// What makes a process the user's one launcher. The kernel takes it back however the process ends.
struct FirstInstance {
    /// A lock (flock(2)) that only one process can have.
    FileDescriptor lock;
    /// Where further starts leave their requests (a listening socket of unix(7) that keeps the
    /// bounds of messages); they wait there until somebody takes them.
    FileDescriptor listener;

    /// Leaves both to the program that this process executes next, as a service manager does with
    /// the sockets that it opened for a service (sd_listen_fds(3)).
    void passOn() &&;

    /// Takes over what was passed on to this process, and the traces of it from the environment;
    /// holds nothing when nothing was.
    static FirstInstance takeOver();
};

} // namespace quorvantel::platform
