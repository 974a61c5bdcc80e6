#include "support/SessionBus.h"

namespace quorvantel::testing {
namespace {

QProcessEnvironment serviceEnvironment() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Services of the desktop abort without their settings' schemas, which they would look for in
    // the test's own XDG_DATA_DIRS.
    environment.insert(QStringLiteral("GSETTINGS_SCHEMA_DIR"),
                       QStringLiteral("/usr/share/glib-2.0/schemas"));
    return environment;
}

} // namespace

SessionBus::SessionBus(const QString& directory)
    : m_process({
          .program = QStringLiteral("dbus-daemon"),
          .arguments = {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--nopidfile"),
                        QStringLiteral("--address=unix:dir=%1").arg(directory),
                        QStringLiteral("--print-address=%1").arg(m_ready.writeEnd())},
          .environment = serviceEnvironment(),
          .inheritedDescriptor = m_ready.writeEnd(),
      }),
      m_address(QString::fromLocal8Bit(m_ready.readLine("dbus-daemon"))) {}

} // namespace quorvantel::testing
