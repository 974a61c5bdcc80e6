#include "gnome/GnomeSession.h"

#include "support/WaitUntil.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFile>

#include <stdexcept>

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

const QString connectionName = u"gnome"_s;
const QString remoteDesktop = u"org.gnome.Mutter.RemoteDesktop"_s;
const QString session = remoteDesktop + u".Session"_s;

} // namespace

GnomeSession::GnomeSession()
    : m_connection(QDBusConnection::connectToBus(m_bus.address(), connectionName)),
      m_loginManager(launch(
          u"python3"_s, {u"-m"_s, u"dbusmock"_s, u"--session"_s, u"--template"_s, u"logind"_s})),
      m_shell((await(u"org.freedesktop.login1"_s),
               launch(u"gnome-shell"_s, {u"--headless"_s, u"--no-x11"_s, u"--virtual-monitor"_s,
                                         u"1280x800"_s, u"--wayland-display"_s, u"wayland-1"_s}))),
      m_mediaKeys((awaitShell(), launch(u"/usr/libexec/gsd-media-keys"_s, {}))) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toLocal8Bit());
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    m_keyboard = call(u"/org/gnome/Mutter/RemoteDesktop"_s, remoteDesktop, u"CreateSession"_s);
    call(m_keyboard, session, u"Start"_s);
}

GnomeSession::~GnomeSession() {
    QDBusConnection::disconnectFromBus(connectionName);
}

ChildProcess::Launch GnomeSession::launch(const QString& program,
                                          const QStringList& arguments) const {
    ChildProcess::Launch launch{.program = program, .arguments = arguments};
    launch.environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_bus.address());
    launch.environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, m_bus.address());
    launch.environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-1"_s);
    launch.environment.insert(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
    launch.environment.insert(u"XDG_DATA_DIRS"_s, u"/usr/share"_s);
    return launch;
}

void GnomeSession::await(const QString& busName) const {
    if (!waitUntil([&] { return m_connection.interface()->isServiceRegistered(busName).value(); },
                   3 * patience)) {
        throw std::runtime_error("GNOME does not offer " + busName.toStdString());
    }
}

void GnomeSession::awaitShell() const {
    await(remoteDesktop);
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/wayland-1"_s;
    if (!waitUntil([&] { return QFile::exists(socket); })) {
        throw std::runtime_error("gnome-shell takes no clients");
    }
}

QString GnomeSession::call(const QString& path, const QString& interface, const QString& method,
                           const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(remoteDesktop, path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = m_connection.call(message);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        throw std::runtime_error(reply.errorMessage().toStdString());
    }
    return reply.arguments().value(0).value<QDBusObjectPath>().path();
}

void GnomeSession::press(std::initializer_list<int> keys) {
    for (const int key : keys) {
        setKeyDown(key, true);
    }
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) {
        setKeyDown(*key, false);
    }
}

void GnomeSession::setKeyDown(int key, bool down) const {
    call(m_keyboard, session, u"NotifyKeyboardKeycode"_s, {static_cast<uint>(key), down});
}

} // namespace quorvantel::testing
