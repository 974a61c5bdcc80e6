#include "support/WaylandCompositor.h"

#include "support/WaitUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <wayland-client.h>

#include <stdexcept>

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

bool acceptsClients(const QString& display) {
    wl_display* const connection = wl_display_connect(QFile::encodeName(display).constData());
    if (connection == nullptr) {
        return false;
    }
    const bool answers = wl_display_roundtrip(connection) >= 0;
    wl_display_disconnect(connection);
    return answers;
}

void writeFile(const QString& path, const QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// Runs a program to its end in the compositor's session.
void run(const QString& program, const QStringList& arguments, const QString& folder) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder);
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-1"_s);
    environment.insert(u"SWAYSOCK"_s, folder + u"/sway"_s);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error(program.toStdString() + ": " +
                                 process.readAllStandardError().toStdString() +
                                 process.readAllStandardOutput().toStdString());
    }
}

/// Asks KWin for what all outputs show.
QImage screenshotOfKWin(const QString& busAddress) {
    const QString name = u"screenshot"_s;
    const QDBusConnection bus = QDBusConnection::connectToBus(busAddress, name);
    QTemporaryFile pixels;
    if (!pixels.open()) {
        throw std::runtime_error("no file for the screenshot");
    }
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
                                       u"org.kde.KWin.ScreenShot2"_s, u"CaptureWorkspace"_s);
    call << QVariantMap{{u"native-resolution"_s, true}}
         << QVariant::fromValue(QDBusUnixFileDescriptor(pixels.handle()));
    const QDBusReply<QVariantMap> reply = bus.call(call);
    QDBusConnection::disconnectFromBus(name);
    if (!reply.isValid()) {
        throw std::runtime_error(reply.error().message().toStdString());
    }
    const auto number = [&reply](const QString& key) { return reply.value().value(key).toInt(); };
    const qint64 bytes = qint64{number(u"stride"_s)} * number(u"height"_s);
    // KWin answers before it has written all.
    if (!waitUntil([&] { return pixels.size() >= bytes; })) {
        throw std::runtime_error("KWin does not write the screenshot");
    }
    pixels.seek(0);
    const QByteArray data = pixels.readAll();
    return QImage(reinterpret_cast<const uchar*>(data.constData()), number(u"width"_s),
                  number(u"height"_s), number(u"stride"_s),
                  static_cast<QImage::Format>(number(u"format"_s)))
        .copy();
}

} // namespace

WaylandCompositor::WaylandCompositor(const Options& options)
    : m_options(options), m_bus(m_folder.path()) {
    start();
}

void WaylandCompositor::restart() {
    m_process.reset();
    start();
}

void WaylandCompositor::start() {
    m_process.emplace(launch());
    if (!waitUntil([this] { return !m_process->isRunning() || acceptsClients(display()); },
                   3 * patience) ||
        !m_process->isRunning()) {
        QFile log(m_folder.filePath(u"log"_s));
        const bool opened = log.open(QIODevice::ReadOnly);
        throw std::runtime_error(m_options.program.toStdString() + " does not start: " +
                                 (opened ? log.readAll().toStdString() : "it says nothing"));
    }
}

ChildProcess::Launch WaylandCompositor::launch() const {
    ChildProcess::Launch launch{.program = m_options.program,
                                .outputPath = m_folder.filePath(u"log"_s),
                                .refusesRoot = true};
    for (const QString& folder : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s,
                                  u"XDG_CACHE_HOME"_s, u"XDG_DATA_HOME"_s}) {
        launch.environment.insert(folder, m_folder.path());
    }
    launch.environment.insert(u"XDG_DATA_DIRS"_s, u"/usr/share"_s);
    launch.environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_bus.address());
    launch.environment.remove(u"WAYLAND_DISPLAY"_s);
    launch.environment.remove(u"QT_QPA_PLATFORM"_s);
    if (m_options.program == u"sway"_s) {
        writeFile(m_folder.filePath(u"config"_s),
                  u"xwayland disable\nfocus_follows_mouse no\ndefault_border none\n"
                  "output * resolution %1x%2 scale %3\n"_s.arg(m_options.pixels.width())
                      .arg(m_options.pixels.height())
                      .arg(m_options.scale));
        launch.arguments = {u"--config"_s, m_folder.filePath(u"config"_s)};
        launch.environment.insert(u"SWAYSOCK"_s, m_folder.filePath(u"sway"_s));
        launch.environment.insert(u"WLR_BACKENDS"_s, u"headless"_s);
        launch.environment.insert(u"WLR_HEADLESS_OUTPUTS"_s, QString::number(m_options.outputs));
        launch.environment.insert(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
        launch.environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
        return launch;
    }
    // A copy has none of the capabilities with which the system's own is not to be started here. It
    // knows itself by its name.
    launch.program = copyOf(QStandardPaths::findExecutable(m_options.program));
    const QSizeF points = m_options.pixels.toSizeF() / m_options.scale;
    launch.arguments = {u"--virtual"_s,      u"--no-lockscreen"_s,
                        u"--socket"_s,       u"wayland-1"_s,
                        u"--width"_s,        QString::number(qRound(points.width())),
                        u"--height"_s,       QString::number(qRound(points.height())),
                        u"--scale"_s,        QString::number(m_options.scale),
                        u"--output-count"_s, QString::number(m_options.outputs)};
    launch.environment.insert(u"KWIN_COMPOSE"_s, u"O2"_s);
    launch.environment.insert(u"KWIN_SCREENSHOT_NO_PERMISSION_CHECKS"_s, u"1"_s);
    launch.environment.insert(u"KWIN_WAYLAND_NO_PERMISSION_CHECKS"_s, u"1"_s);
    return launch;
}

void WaylandCompositor::enter() const {
    qputenv("WAYLAND_DISPLAY", display().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "wayland");
}

QString WaylandCompositor::copyOf(const QString& program) const {
    const QString copy = m_folder.filePath(QFileInfo(program).fileName());
    if (!QFile::exists(copy) && !QFile::copy(program, copy)) {
        throw std::runtime_error("cannot copy " + program.toStdString());
    }
    return copy;
}

QSize WaylandCompositor::size() const {
    return {m_options.outputs * qRound(m_options.pixels.width() / m_options.scale),
            qRound(m_options.pixels.height() / m_options.scale)};
}

void WaylandCompositor::command(const QString& command) const {
    run(u"swaymsg"_s, {command}, m_folder.path());
}

QImage WaylandCompositor::screenshot() const {
    if (m_options.program == u"kwin_wayland"_s) {
        return screenshotOfKWin(busAddress());
    }
    const QString path = m_folder.filePath(u"screen.ppm"_s);
    run(u"grim"_s, {u"-t"_s, u"ppm"_s, path}, m_folder.path());
    return QImage(path);
}

} // namespace quorvantel::testing
