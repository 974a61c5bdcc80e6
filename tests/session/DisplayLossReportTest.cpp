#include "platform/linux/session/DisplayLossReport.h"

#include <QDebug>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

namespace quorvantel::platform {
namespace {

void loseDisplayWhileDrawing() {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        std::fprintf(stderr, "[%s]", qPrintable(message));
    });
    bool isGone = false;
    const DisplayLossReport report([&isGone] { return isGone; });
    qWarning("drawing is slow");
    isGone = true;
    qWarning("Quorvantel: failed to open Editor");
    qWarning("drawing failed");
    qWarning("drawing failed again");
}

TEST(DisplayLossReportTest, OneLineReplacesWhatTheToolkitSaysAndEndsTheProgram) {
    EXPECT_EXIT(loseDisplayWhileDrawing(), ::testing::ExitedWithCode(1),
                ::testing::StrEq("[drawing is slow][Quorvantel: failed to open Editor]"
                                 "[Quorvantel: the display server is gone]"));
}

} // namespace
} // namespace quorvantel::platform
