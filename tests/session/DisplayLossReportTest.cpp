#include "platform/linux/session/DisplayLossReport.h"

#include <QDebug>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

namespace quorvantel::platform {
namespace {

/// Logs to the error output; at the line of the loss, while that is written, another thread notices
/// it.
void log(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    std::fprintf(stderr, "[%s]", qPrintable(message));
    static bool isNoticed = false;
    if (message.endsWith(QStringLiteral("is gone")) && !std::exchange(isNoticed, true)) {
        std::thread([] { qWarning("reading failed"); }).detach();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

void loseDisplayWhileDrawing() {
    qInstallMessageHandler(log);
    bool isGone = false;
    const DisplayLossReport report([&isGone] { return isGone; });
    qWarning("drawing is slow");
    isGone = true;
    qWarning("Quorvantel: failed to open Editor");
    qWarning("drawing failed");
}

TEST(DisplayLossReportTest, OneLineReplacesWhatTheToolkitSaysAndEndsTheProgram) {
    EXPECT_EXIT(loseDisplayWhileDrawing(), ::testing::ExitedWithCode(1),
                ::testing::StrEq("[drawing is slow][Quorvantel: failed to open Editor]"
                                 "[Quorvantel: the display server is gone]"));
}

} // namespace
} // namespace quorvantel::platform
