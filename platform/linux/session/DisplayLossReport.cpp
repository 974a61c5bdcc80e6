#include "platform/linux/session/DisplayLossReport.h"

#include <QString>

#include <cstdlib>
#include <mutex>
#include <utility>

namespace quorvantel::platform {

namespace {

// A message handler gets no context.
std::function<bool()> isDisplayGone;
QtMessageHandler previousHandler = nullptr;
std::mutex ending;

void endOnLoss(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool isKept = type == QtFatalMsg || message.startsWith(QStringLiteral("Quorvantel: "));
    if (isKept || !isDisplayGone()) {
        previousHandler(type, context, message);
        return;
    }
    // Several of the toolkit's threads may notice at once; one gets on, until the process ends.
    ending.lock();
    previousHandler(QtWarningMsg, {}, QStringLiteral("Quorvantel: the display server is gone"));
    // Everything that is to last was stored when it changed.
    std::_Exit(EXIT_FAILURE);
}

} // namespace

DisplayLossReport::DisplayLossReport(std::function<bool()> isGone) {
    isDisplayGone = std::move(isGone);
    // Before the own handler is in place, since other threads may log at any time.
    previousHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(endOnLoss);
}

DisplayLossReport::~DisplayLossReport() {
    qInstallMessageHandler(previousHandler);
}

} // namespace quorvantel::platform
