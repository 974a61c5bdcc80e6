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

void run(const QString& program, const QStringList& arguments,
         const QProcessEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error(program.toStdString() + ": " +
                                 process.readAllStandardError().toStdString() +
                                 process.readAllStandardOutput().toStdString());
    }
}

QDBusMessage call(const QString& busAddress, const QDBusMessage& message) {
    const QString name = u"compositor"_s;
    const QDBusMessage reply = QDBusConnection::connectToBus(busAddress, name).call(message);
    QDBusConnection::disconnectFromBus(name);
    return reply;
}

/// Asks KWin for what all outputs show.
QImage screenshotOfKWin(const QString& busAddress) {
    QTemporaryFile pixels;
    if (!pixels.open()) {
        throw std::runtime_error("no file for the screenshot");
    }
    QDBusMessage request =
        QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/org/kde/KWin/ScreenShot2"_s,
                                       u"org.kde.KWin.ScreenShot2"_s, u"CaptureWorkspace"_s);
    request << QVariantMap{{u"native-resolution"_s, true}}
            << QVariant::fromValue(QDBusUnixFileDescriptor(pixels.handle()));
    const QDBusReply<QVariantMap> reply = call(busAddress, request);
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
    if (isGnome()) {
        prepareGnome();
    }
    m_process.emplace(launch());
    if (!waitUntil([this] { return !m_process->isRunning() || acceptsClients(display()); },
                   3 * patience) ||
        !m_process->isRunning() || (isGnome() && !leaveOverview())) {
        QFile log(m_folder.filePath(u"log"_s));
        const bool opened = log.open(QIODevice::ReadOnly);
        throw std::runtime_error(m_options.program.toStdString() + " does not start: " +
                                 (opened ? log.readAll().toStdString() : "it says nothing"));
    }
}

void WaylandCompositor::prepareGnome() {
    const QProcessEnvironment session = environment();
    if (!m_loginManager) {
        m_loginManager.emplace(ChildProcess::Launch{
            .program = u"python3"_s,
            .arguments = {u"-m"_s, u"dbusmock"_s, u"--session"_s, u"--template"_s, u"logind"_s},
            .environment = session});
        run(u"gdbus"_s, {u"wait"_s, u"--session"_s, u"--timeout=30"_s, u"org.freedesktop.login1"_s},
            session);
    }
    run(u"gsettings"_s, {u"set"_s, u"org.gnome.mutter"_s, u"center-new-windows"_s, u"true"_s},
        session);
    run(u"gsettings"_s,
        {u"set"_s, u"org.gnome.desktop.interface"_s, u"scaling-factor"_s,
         QString::number(qRound(m_options.scale))},
        session);
}

bool WaylandCompositor::leaveOverview() const {
    // It is shown at the start, once all is there.
    QDBusMessage evaluation = QDBusMessage::createMethodCall(
        u"org.gnome.Shell"_s, u"/org/gnome/Shell"_s, u"org.gnome.Shell"_s, u"Eval"_s);
    evaluation << u"if (!Main.layoutManager._startingUp) Main.overview.hide();"
                  "Main.layoutManager._startingUp || Main.overview.visible"_s;
    return waitUntil([&] {
        return call(busAddress(), evaluation).arguments().value(1).toString() == u"false"_s;
    });
}

QProcessEnvironment WaylandCompositor::environment() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (isGnome()) {
        // Its settings are the session's, and so are the folders that they are in.
        environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, busAddress());
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
    } else {
        for (const QString& folder : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s,
                                      u"XDG_CACHE_HOME"_s, u"XDG_DATA_HOME"_s}) {
            environment.insert(folder, m_folder.path());
        }
        environment.insert(u"SWAYSOCK"_s, m_folder.filePath(u"sway"_s));
    }
    environment.insert(u"XDG_DATA_DIRS"_s, u"/usr/share"_s);
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress());
    environment.insert(u"WAYLAND_DISPLAY"_s, display());
    return environment;
}

ChildProcess::Launch WaylandCompositor::launch() const {
    ChildProcess::Launch launch{.program = m_options.program,
                                .environment = environment(),
                                .outputPath = m_folder.filePath(u"log"_s),
                                .refusesRoot = true};
    launch.environment.remove(u"WAYLAND_DISPLAY"_s);
    launch.environment.remove(u"QT_QPA_PLATFORM"_s);
    if (isGnome()) {
        launch.arguments = {u"--headless"_s, u"--no-x11"_s, u"--unsafe-mode"_s,
                            u"--wayland-display"_s, display()};
        for (int output = 0; output < m_options.outputs; ++output) {
            launch.arguments +=
                {u"--virtual-monitor"_s,
                 u"%1x%2"_s.arg(m_options.pixels.width()).arg(m_options.pixels.height())};
        }
        return launch;
    }
    if (m_options.program == u"sway"_s) {
        QString config = u"xwayland disable\nfocus_follows_mouse no\ndefault_border none\n"_s;
        if (m_options.host == nullptr) {
            config += u"output * resolution %1x%2 scale %3\n"_s.arg(m_options.pixels.width())
                          .arg(m_options.pixels.height())
                          .arg(m_options.scale);
            launch.environment.insert(u"WLR_BACKENDS"_s, u"headless"_s);
        } else {
            launch.environment.insert(u"WLR_BACKENDS"_s, u"wayland"_s);
            launch.environment.insert(u"WAYLAND_DISPLAY"_s, m_options.host->display());
        }
        writeFile(m_folder.filePath(u"config"_s), config);
        launch.arguments = {u"--config"_s, m_folder.filePath(u"config"_s)};
        for (const QString& outputs : {u"WLR_HEADLESS_OUTPUTS"_s, u"WLR_WL_OUTPUTS"_s}) {
            launch.environment.insert(outputs, QString::number(m_options.outputs));
        }
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
    if (isGnome()) {
        qputenv("XDG_CURRENT_DESKTOP", "GNOME");
        qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    }
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
    run(u"swaymsg"_s, {command}, environment());
}

QImage WaylandCompositor::screenshot() const {
    if (m_options.program == u"kwin_wayland"_s) {
        return screenshotOfKWin(busAddress());
    }
    const QString path = m_folder.filePath(u"screen"_s);
    if (isGnome()) {
        QDBusMessage request = QDBusMessage::createMethodCall(
            u"org.gnome.Shell.Screenshot"_s, u"/org/gnome/Shell/Screenshot"_s,
            u"org.gnome.Shell.Screenshot"_s, u"Screenshot"_s);
        request << false << false << path;
        call(busAddress(), request);
    } else {
        run(u"grim"_s, {u"-t"_s, u"ppm"_s, path}, environment());
    }
    const QImage image(path);
    if (image.isNull()) {
        throw std::runtime_error("the compositor gives no screenshot");
    }
    return image;
}

} // namespace quorvantel::testing
