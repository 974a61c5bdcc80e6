#include "platform/linux/session/SessionManagerLoss.h"

#include <QtGlobal>

#include <X11/ICE/ICElib.h>
#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace quorvantel::platform {

namespace {

IceIOErrorHandler previousHandler = nullptr;

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

SessionManagerLoss::SessionManagerLoss() {
    previousHandler = IceSetIOErrorHandler(carryOn);
}

SessionManagerLoss::~SessionManagerLoss() {
    IceSetIOErrorHandler(previousHandler);
}

} // namespace quorvantel::platform
