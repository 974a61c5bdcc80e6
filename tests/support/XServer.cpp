#include "support/XServer.h"

namespace quorvantel::testing {
namespace {

ChildProcess::Launch serverLaunch(QSize pixels, int displayDescriptor) {
    ChildProcess::Launch launch{
        .program = QStringLiteral("Xvfb"),
        .arguments = {QStringLiteral("-displayfd"), QString::number(displayDescriptor),
                      QStringLiteral("-screen"), QStringLiteral("0"),
                      QStringLiteral("%1x%2x24").arg(pixels.width()).arg(pixels.height()),
                      QStringLiteral("-dpi"), QStringLiteral("96"), QStringLiteral("-noreset"),
                      QStringLiteral("-nolisten"), QStringLiteral("tcp")},
        .inheritedDescriptor = displayDescriptor,
    };
    // Given the chance, the server removes its lock file and its socket.
    launch.deathSignal = SIGTERM;
    return launch;
}

} // namespace

XServer::XServer(QSize pixels)
    : m_process(serverLaunch(pixels, m_ready.writeEnd())),
      m_display(":" + m_ready.readLine("Xvfb")) {}

} // namespace quorvantel::testing
