#include "platform/linux/x11/SessionManagerLoss.h"

#include <QtGlobal>

#include <X11/ICE/ICElib.h>
#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>

namespace quorvantel::platform {

namespace {

void carryOn(IceConn connection) {
    qWarning("Quorvantel: the session manager is gone");
    // The toolkit goes on watching the descriptor, whose end of file would wake it without end. In
    // its place it gets one on which nothing ever happens.
    const int silent = ::eventfd(0, EFD_CLOEXEC);
    if (silent >= 0) {
        ::dup3(silent, IceConnectionNumber(connection), O_CLOEXEC);
        ::close(silent);
    }
}

} // namespace

void surviveSessionManagerLoss() {
    IceSetIOErrorHandler(carryOn);
    // Writing to the connection may be what finds it broken. A handler that does nothing, unlike an
    // ignored signal, is not handed on to launched programs.
    struct sigaction action {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGPIPE, &action, nullptr);
}

} // namespace quorvantel::platform
