#include "e2e/LauncherSession.h"

#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <QJsonDocument>

#include <X11/keysym.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

void require(bool condition, const QByteArray& failure) {
    if (!condition) {
        throw std::runtime_error(failure.toStdString());
    }
}

// Leaves one file a run, complete from the moment that it has its name: the arguments, and whatever
// the program finds that it should not.
constexpr auto proofScript = R"(#!/bin/sh
proof="$(dirname "$0")/proofs/$1.$$"
for argument; do printf '%s\n' "$argument"; done >"$proof.part"
[ "$PWD" = "$HOME" ] || echo "It runs in $PWD." >>"$proof.part"
[ -z "$DESKTOP_AUTOSTART_ID" ] || echo "It has the launcher's identity." >>"$proof.part"
mv "$proof.part" "$proof"
)";

} // namespace

LauncherSession::LauncherSession(const QString& windowManager)
    : m_connection(m_server.display()),
      m_desktop(m_connection),
      m_keyboard(m_connection),
      m_pointer(m_connection),
      m_bus(m_home.path()),
      m_windowManager(m_connection, m_server.display(), windowManager, m_bus.address()) {
    const QString script = homeFile(u"prove"_s);
    writeProgram(script, proofScript);
    QDir().mkpath(homeFile(u"proofs"_s));
}

void LauncherSession::addApplication(const QString& id, const QString& name) {
    const QString entry = u"[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=%1\n"
                          "Exec=%2 %3 \"two words\" %U\n"_s.arg(name, homeFile(u"prove"_s), id);
    writeFile(m_home.dataHome() + u"/applications/"_s + id + u".desktop"_s, entry.toUtf8());
}

void LauncherSession::storeHotKey(int keyCode, int modifiers) {
    const QString plist = QStringLiteral(R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>hotKeyCode</key><integer>%1</integer>
<key>hotKeyModifiers</key><integer>%2</integer>
</dict></plist>
)")
                              .arg(keyCode)
                              .arg(modifiers);
    writeFile(m_home.configHome() + u"/Quorvantel/defaults.plist"_s, plist.toUtf8());
}

void LauncherSession::setKeyboardLayout(const QStringList& arguments) const {
    ChildProcess process({
        .program = u"setxkbmap"_s,
        .arguments = QStringList{u"-display"_s, QString::fromLatin1(display())} + arguments,
    });
    const auto exit = process.waitForExit(patience);
    require(exit && !exit->crashed && exit->status == 0, "setxkbmap failed");
}

ChildProcess::Launch LauncherSession::launch() const {
    ChildProcess::Launch launch{
        .program = QStringLiteral(QUORVANTEL_PROGRAM),
        .outputPath = homeFile(u"output"_s),
    };
    launch.environment.insert(u"DISPLAY"_s, QString::fromLatin1(display()));
    launch.environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_bus.address());
    launch.environment.insert(u"DESKTOP_AUTOSTART_ID"_s, u"autostarted"_s);
    launch.environment.remove(u"QT_QPA_PLATFORM"_s);
    return launch;
}

void LauncherSession::start(const QByteArray& expected, const QMap<QString, QString>& environment) {
    ChildProcess::Launch changed = launch();
    for (const auto& [name, value] : environment.asKeyValueRange()) {
        changed.environment.insert(name, value);
    }
    start(changed, expected);
}

void LauncherSession::start(const ChildProcess::Launch& changed, const QByteArray& expected) {
    QFile::remove(homeFile(u"output"_s));
    m_launcher.emplace(changed);
    require(waitUntil([&] { return !isRunning() || output().contains(expected); }) && isRunning(),
            "the launcher did not start; it printed: " + output());
}

std::optional<ChildProcess::Exit> LauncherSession::terminate() {
    m_launcher->signal(SIGTERM);
    return m_launcher->waitForExit(patience);
}

bool LauncherSession::waitForRest() const {
    // User and system time in clock ticks, the 14th and 15th field of proc(5) "stat".
    const auto usedTime = [this] {
        const QByteArray stat = readFile(u"/proc/%1/stat"_s.arg(m_launcher->pid()));
        return stat.split(' ').mid(13, 2);
    };
    return waitUntil([&usedTime] {
        const auto earlier = usedTime();
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        return usedTime() == earlier;
    });
}

void LauncherSession::pressDefaultHotKey() {
    m_keyboard.press({XK_Alt_L, XK_Super_L, XK_space});
}

void LauncherSession::summon() {
    pressDefaultHotKey();
    // Until the modifiers are let go, for the launcher to see as well, a click is another one.
    require(waitUntil([this] {
                return panel() && m_desktop.isKeyboardGrabbed() && !m_desktop.isAnyKeyDown();
            }),
            (panel() ? "the summoned panel does not take the keyboard"
                     : "the hotkey does not summon the panel") +
                QByteArrayLiteral("; the launcher printed: ") + output());
}

void LauncherSession::search(const QByteArray& query, int results) {
    m_keyboard.type(query);
    require(waitForPanelHeight(panelHeight(results)),
            "the panel does not list " + QByteArray::number(results) + " results; its height is " +
                QByteArray::number(panel().value_or(QRect()).height()));
}

std::optional<QRect> LauncherSession::panel() const {
    for (const xcb_window_t window : m_desktop.overrideRedirectWindows()) {
        const std::optional<QRect> geometry = m_desktop.geometry(window);
        if (geometry && geometry->width() == panelWidth) {
            return geometry;
        }
    }
    return std::nullopt;
}

bool LauncherSession::waitForPanelHeight(int height) const {
    return waitUntil([this, height] { return panel() && panel()->height() == height; });
}

bool LauncherSession::waitForDismissal() const {
    return waitUntil([this] { return !panel() && !m_desktop.isKeyboardGrabbed(); });
}

std::vector<QStringList> LauncherSession::waitForRuns(const QString& id, std::size_t count) const {
    waitUntil([&] { return runs(id).size() >= count; });
    return runs(id);
}

std::vector<QStringList> LauncherSession::runs(const QString& id) const {
    const QDir proofs(homeFile(u"proofs"_s));
    std::vector<QStringList> result;
    for (const QString& proof : proofs.entryList({id + u".*"_s}, QDir::Files)) {
        if (!proof.endsWith(u".part"_s)) {
            result.push_back(QString::fromUtf8(readFile(proofs.filePath(proof)))
                                 .split(QLatin1Char('\n'), Qt::SkipEmptyParts));
        }
    }
    return result;
}

QByteArray LauncherSession::output() const {
    return readFile(homeFile(u"output"_s));
}

std::optional<QJsonObject> LauncherSession::dataFile(const QString& name) const {
    const auto content = readFile(m_home.dataHome() + u"/Quorvantel/"_s + name);
    const QJsonDocument document = QJsonDocument::fromJson(content);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

std::optional<QJsonObject> LauncherSession::waitForDataFile(const QString& name) const {
    waitUntil([&] { return dataFile(name).has_value(); });
    return dataFile(name);
}

QString LauncherSession::homeFile(const QString& relativePath) const {
    return m_home.path() + QLatin1Char('/') + relativePath;
}

} // namespace quorvantel::testing
