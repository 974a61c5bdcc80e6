#include "support/SessionBus.h"

#include <QFile>

#include <stdexcept>

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

/// That of every session, but open to programs of another user, which a compositor is when the
/// tests run as root.
QString writeConfiguration(const QString& directory) {
    const QString path = directory + u"/bus.conf"_s;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("cannot configure the session bus");
    }
    file.write("<busconfig><include>/usr/share/dbus-1/session.conf</include>"
               "<policy context=\"default\"><allow user=\"*\"/></policy></busconfig>");
    return path;
}

} // namespace

SessionBus::SessionBus(const QString& directory)
    : m_process({
          .program = u"dbus-daemon"_s,
          .arguments = {u"--config-file="_s + writeConfiguration(directory), u"--nofork"_s,
                        u"--nopidfile"_s, u"--print-address"_s,
                        u"--address=unix:dir="_s + directory},
          .environment = serviceEnvironment(),
          .announcesItself = true,
      }),
      m_address(QString::fromLocal8Bit(m_process.readLine())) {}

} // namespace quorvantel::testing
