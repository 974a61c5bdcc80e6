#include "platform/linux/GioWorkspace.h"

#include "platform/PrivateFile.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/EntryCommand.h"
#include "platform/linux/GLibPointers.h"
#include "platform/linux/ProgramSearch.h"
#include "platform/linux/ProgramStart.h"
#include "platform/linux/TerminalEmulator.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gio.h>

#include <algorithm>
#include <chrono>
#include <utility>
#include <variant>

namespace quorvantel::platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr qint64 maximumEntrySize = qint64{1024} * 1024;
/// Later than this, the user no longer expects another panel than the one that did not open.
constexpr std::chrono::seconds panelPatience{2};

/// Milliseconds that an application has to start and to answer.
constexpr int activationTimeout = 25'000;

QString takeMessage(GError* error) {
    return QString::fromUtf8(GErrorPointer(error)->message);
}

/// An entry that can be opened, or why it cannot.
using ReadEntry = std::variant<std::shared_ptr<const DesktopEntry>, QString>;

ReadEntry readEntry(const QString& path) {
    const FileContent content = readRegularFile(path, maximumEntrySize);
    if (const auto* error = std::get_if<FileError>(&content)) {
        return describe(*error);
    }
    auto entry = std::make_shared<const DesktopEntry>(std::get<QByteArray>(content));
    if (!entry->syntaxError().isEmpty()) {
        return entry->syntaxError();
    }
    if (entry->text(G_KEY_FILE_DESKTOP_KEY_TYPE) !=
            QLatin1StringView(G_KEY_FILE_DESKTOP_TYPE_APPLICATION) ||
        (entry->command().isEmpty() && !entry->flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE))) {
        return QStringLiteral("not the entry of an application");
    }
    ProgramSearch programs;
    if (entry->lacksProgram(programs)) {
        return QStringLiteral("program not found: ") + entry->text(G_KEY_FILE_DESKTOP_KEY_EXEC);
    }
    return entry;
}

/// Whether the entry wants a message on the session bus rather than its program executed.
bool isActivatable(const DesktopEntry& entry, const QString& path) {
    const QByteArray name = QFile::encodeName(QFileInfo(path).completeBaseName());
    return entry.flag(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) &&
           g_dbus_is_name(name.constData()) != FALSE &&
           g_dbus_is_unique_name(name.constData()) == FALSE;
}

bool announcesStart(const DesktopEntry& entry, bool unlessDenied) {
    constexpr const char* key = G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY;
    return entry.flag(key) || (unlessDenied && entry.text(key).isEmpty());
}

void announce(StartupNotifier& notifier, const DesktopEntry& entry, const QString& path,
              StartupNotifier::Announced announced) {
    notifier.begin(entry.localizedText(G_KEY_FILE_DESKTOP_KEY_NAME).toUtf8(),
                   QFileInfo(path).fileName().toUtf8(),
                   entry.text(G_KEY_FILE_DESKTOP_KEY_ICON).toUtf8(), std::move(announced));
}

/// Has the program of an entry that is made for certain desktops alone (OnlyShowIn), and not for
/// the running one, believe that it runs on its own: some settings programs end at once otherwise.
void presentDesktop(const DesktopEntry& entry, LaunchEnvironment& environment) {
    constexpr const char* variable = "XDG_CURRENT_DESKTOP";
    const QStringList desktops = entry.texts(G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN);
    const QStringList running =
        QString::fromLocal8Bit(environment.value(variable)).split(QLatin1Char(':'));
    const bool isRunning = std::ranges::any_of(
        running, [&desktops](const QString& desktop) { return desktops.contains(desktop); });
    if (!desktops.isEmpty() && !isRunning) {
        environment.set(variable, desktops.front().toLocal8Bit().constData());
    }
}

/// The ID is that of the Startup Notification Protocol; an empty one means that the start was not
/// announced, and the program is not to take another's for its own.
void presentStart(const QByteArray& startupId, LaunchEnvironment& environment) {
    // Toolkits read the one name on X11 and the other one on Wayland.
    for (const char* const variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
        if (startupId.isEmpty()) {
            environment.unset(variable);
        } else {
            environment.set(variable, startupId.constData());
        }
    }
}

/// Sends what the Desktop Entry Specification has an application be activated by.
void activate(GDBusConnection* bus, const QString& path, const QByteArray& startupId,
              LaunchReport report) {
    const QByteArray name = QFile::encodeName(QFileInfo(path).completeBaseName());
    const QByteArray object = '/' + QByteArray(name).replace('.', '/').replace('-', '_');
    GVariantBuilder platformData;
    g_variant_builder_init(&platformData, G_VARIANT_TYPE_VARDICT);
    if (!startupId.isEmpty()) {
        for (const char* key : {"desktop-startup-id", "activation-token"}) {
            g_variant_builder_add(&platformData, "{sv}", key,
                                  g_variant_new_string(startupId.constData()));
        }
    }
    const auto finished = [](GObject* source, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<LaunchReport> reported(static_cast<LaunchReport*>(data));
        GError* error = nullptr;
        GVariant* const reply =
            g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, &error);
        if (reply != nullptr) {
            g_variant_unref(reply);
            reported->finish({});
        } else {
            reported->finish(takeMessage(error));
        }
    };
    g_dbus_connection_call(bus, name.constData(), object.constData(), "org.freedesktop.Application",
                           "Activate", g_variant_new("(a{sv})", &platformData), nullptr,
                           G_DBUS_CALL_FLAGS_NONE, activationTimeout, nullptr, finished,
                           new LaunchReport(std::move(report)));
}

} // namespace

GioWorkspace::GioWorkspace(const BundleReader& bundles, StartupNotifier* notifier,
                           const DesktopSettingsPanels& settingsPanels,
                           LaunchEnvironment environment, std::string busAddress)
    : m_bundles(bundles),
      m_notifier(notifier),
      m_settingsPanels(settingsPanels),
      m_environment(std::move(environment)),
      m_bus(std::move(busAddress)),
      m_alive(std::make_shared<char>()) {}

void GioWorkspace::openApplication(const QUrl& location, Completion completion) {
    const QString path = location.toLocalFile();
    if (path.endsWith(QStringLiteral(".desktop"))) {
        openEntry(path, StartupNotice::AsDeclared, std::move(completion));
    } else {
        openBundle(path, std::move(completion));
    }
}

bool GioWorkspace::openSettings(const QUrl& url) {
    QStringList entries = m_settingsPanels.entries(url);
    if (entries.isEmpty()) {
        qWarning("Quorvantel: no settings program here shows %s", qUtf8Printable(url.toString()));
        return false;
    }
    openPanel(std::move(entries));
    return true;
}

void GioWorkspace::openPanel(QStringList entries) {
    const QString path = entries.takeFirst();
    const auto report = [this, path, entries, start = Clock::now()](const QString& error) {
        if (error.isEmpty()) {
            return;
        }
        if (!entries.isEmpty() && Clock::now() - start < panelPatience) {
            openPanel(entries);
            return;
        }
        qWarning("Quorvantel: failed to open %s: %s", qUtf8Printable(QFileInfo(path).fileName()),
                 qUtf8Printable(error.simplified()));
    };
    // The toolkits of all desktops report the start, though not all of their entries say so.
    openEntry(path, StartupNotice::UnlessDenied, report);
}

void GioWorkspace::openEntry(const QString& path, StartupNotice notice, Completion completion) {
    ReadEntry read = readEntry(path);
    if (const auto* problem = std::get_if<QString>(&read)) {
        LaunchReport(m_alive, std::move(completion), nullptr, {}).finish(*problem);
        return;
    }
    const auto entry = std::get<std::shared_ptr<const DesktopEntry>>(std::move(read));
    const auto start = [this, alive = std::weak_ptr(m_alive), entry, path,
                        completion = std::move(completion)](const QByteArray& startupId) {
        if (alive.expired()) {
            return;
        }
        LaunchReport report(alive, completion, m_notifier, startupId);
        GDBusConnection* const bus = m_bus.get();
        if (bus != nullptr && isActivatable(*entry, path)) {
            activate(bus, path, startupId, std::move(report));
        } else {
            execute(*entry, path, startupId, std::move(report));
        }
    };
    const bool isAnnounced = announcesStart(*entry, notice == StartupNotice::UnlessDenied);
    if (isAnnounced && m_notifier != nullptr) {
        announce(*m_notifier, *entry, path, start);
    } else {
        start({});
    }
}

void GioWorkspace::execute(const DesktopEntry& entry, const QString& path,
                           const QByteArray& startupId, LaunchReport report) const {
    QStringList command = entryCommand(entry, path);
    if (command.isEmpty()) {
        report.finish(QStringLiteral("no session bus, and no program to execute instead"));
        return;
    }
    if (entry.flag(G_KEY_FILE_DESKTOP_KEY_TERMINAL)) {
        const QStringList terminal = terminalCommand();
        if (terminal.isEmpty()) {
            report.finish(QStringLiteral("Unable to find terminal required for application"));
            return;
        }
        command = terminal + command;
    }
    LaunchEnvironment environment = m_environment;
    presentStart(startupId, environment);
    presentDesktop(entry, environment);
    report.finish(startProgram({std::move(command), entry.text(G_KEY_FILE_DESKTOP_KEY_PATH),
                                std::move(environment), path}));
}

void GioWorkspace::openBundle(const QString& path, Completion completion) {
    LaunchReport report(m_alive, std::move(completion), nullptr, {});
    const std::optional<QVariantMap> info = m_bundles.infoDictionary(path);
    const QString program =
        info ? info->value(QStringLiteral("CFBundleExecutable")).toString() : QString();
    if (program.isEmpty() || program.contains(QLatin1Char('/'))) {
        report.finish(QStringLiteral("not the bundle of an application"));
        return;
    }
    LaunchEnvironment environment = m_environment;
    presentStart({}, environment);
    report.finish(startProgram(
        {{path + QStringLiteral("/Contents/MacOS/") + program}, {}, std::move(environment), {}}));
}

} // namespace quorvantel::platform
