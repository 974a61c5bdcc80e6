#include "support/SessionBus.h"

namespace quorvantel::testing {

SessionBus::SessionBus(const QString& directory)
    : m_process({
          .program = QStringLiteral("dbus-daemon"),
          .arguments = {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--nopidfile"),
                        QStringLiteral("--address=unix:dir=%1").arg(directory),
                        QStringLiteral("--print-address=%1").arg(m_ready.writeEnd())},
          .inheritedDescriptor = m_ready.writeEnd(),
      }),
      m_address(QString::fromLocal8Bit(m_ready.readLine("dbus-daemon"))) {}

} // namespace quorvantel::testing
