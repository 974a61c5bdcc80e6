#include "support/SessionBus.h"

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

QProcessEnvironment serviceEnvironment() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Services of the desktop abort without their settings' schemas, which they would look for in
    // the test's own XDG_DATA_DIRS.
    environment.insert(u"GSETTINGS_SCHEMA_DIR"_s, u"/usr/share/glib-2.0/schemas"_s);
    return environment;
}

} // namespace

SessionBus::SessionBus(const QString& directory)
    : m_process({
          .program = u"dbus-daemon"_s,
          .arguments = {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                        u"--address=unix:dir="_s + directory},
          .environment = serviceEnvironment(),
          .announcesItself = true,
      }),
      m_address(QString::fromLocal8Bit(m_process.readLine())) {}

} // namespace quorvantel::testing
