#include "platform/linux/session/StandardErrorLog.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <poll.h>
#include <unistd.h>

#include <climits>

namespace quorvantel::platform {

namespace {

/// What a pipe that can be written to takes without a wait, in bytes (POSIX).
constexpr qsizetype atomicSize = PIPE_BUF;

void writeMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                  const QString& message) {
    // The descriptor itself stays as it is: launched programs share it.
    pollfd standardError{.fd = STDERR_FILENO, .events = POLLOUT, .revents = 0};
    if (::poll(&standardError, 1, 0) != 1 || (standardError.revents & POLLOUT) == 0) {
        return;
    }
    const QByteArray line = message.toLocal8Bit().left(atomicSize - 1) + '\n';
    [[maybe_unused]] const auto written =
        ::write(STDERR_FILENO, line.constData(), static_cast<std::size_t>(line.size()));
}

} // namespace

void logToStandardError() {
    qInstallMessageHandler(writeMessage);
}

} // namespace quorvantel::platform
