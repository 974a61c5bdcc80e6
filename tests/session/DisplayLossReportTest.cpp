#include "platform/linux/session/DisplayLossReport.h"

#include "support/LogLines.h"
#include "support/WaitUntil.h"
#include "support/XConnection.h"
#include "support/XServer.h"

#include <QDebug>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

// Its macros would spoil the headers above.
#include <X11/Xlib.h>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;
using testing::XConnection;
using testing::XServer;

const QString goneLine = QStringLiteral("Quorvantel: the X server is gone");

const QString complaint = QStringLiteral("drawing failed");

void complain() {
    qWarning().noquote() << complaint;
}

TEST(DisplayLossReportTest, ReplacesWhatTheToolkitSaysOverABrokenConnection) {
    XServer server;
    const XConnection connection(server.display());
    const testing::LogLines log;
    {
        const DisplayLossReport report(X11Display{connection.get(), connection.root()});
        complain();
        server.kill();
        ASSERT_TRUE(waitUntil([&] {
            connection.synchronize();
            return xcb_connection_has_error(connection.get()) != 0;
        }));
        complain();
        complain();
        qWarning("Quorvantel: failed to open Editor");
    }
    complain();
    EXPECT_EQ(log.lines().join(u'\n').toStdString(),
              QStringList({complaint, goneLine, QStringLiteral("Quorvantel: failed to open Editor"),
                           complaint})
                  .join(u'\n')
                  .toStdString());
}

/// Lets Xlib find out that its server is gone.
void loseServerInXlib() {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        std::fprintf(stderr, "[%s]", qPrintable(message));
    });
    XServer server;
    const XConnection connection(server.display());
    Display* const display = XOpenDisplay(server.display().constData());
    const DisplayLossReport report(X11Display{connection.get(), connection.root()});
    server.kill();
    while (true) {
        XSync(display, False);
    }
}

TEST(DisplayLossReportTest, SpeaksForXlibAsWell) {
    EXPECT_EXIT(loseServerInXlib(), ::testing::ExitedWithCode(1),
                ::testing::StrEq("[" + goneLine.toStdString() + "]"));
}

} // namespace
} // namespace quorvantel::platform
