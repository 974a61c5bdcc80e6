#include "platform/linux/session/DisplayLossReport.h"

#include <QString>

#include <X11/Xlib.h>

#include <atomic>
#include <cstdlib>

namespace quorvantel::platform {

namespace {

// Handlers get no context. These are in use until the very end of the process, so none of them has
// a destructor.
xcb_connection_t* watchedConnection = nullptr;
QtMessageHandler previousMessageHandler = nullptr;
XIOErrorHandler previousErrorHandler = nullptr;
std::atomic_bool isReported = false;

void reportOnce() {
    if (!isReported.exchange(true)) {
        // Logging anew is not allowed while a message is being handled.
        previousMessageHandler(QtWarningMsg, {},
                               QStringLiteral("Quorvantel: the X server is gone"));
    }
}

bool isOwn(const QString& message) {
    return message.startsWith(QStringLiteral("Quorvantel: "));
}

void replaceMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool isKept = type == QtFatalMsg || isOwn(message);
    if (!isKept && xcb_connection_has_error(watchedConnection) != 0) {
        reportOnce();
        return;
    }
    previousMessageHandler(type, context, message);
}

/// Xlib does not expect its handler to return.
[[noreturn]] int endProgram(Display* /*display*/) {
    reportOnce();
    std::exit(EXIT_FAILURE);
}

} // namespace

DisplayLossReport::DisplayLossReport(const X11Display& display) {
    watchedConnection = display.connection;
    isReported = false;
    previousErrorHandler = XSetIOErrorHandler(endProgram);
    // Before the own handler is in place, since other threads may log at any time.
    previousMessageHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(replaceMessage);
}

DisplayLossReport::~DisplayLossReport() {
    qInstallMessageHandler(previousMessageHandler);
    XSetIOErrorHandler(previousErrorHandler);
}

} // namespace quorvantel::platform
