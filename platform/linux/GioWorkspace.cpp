#include "platform/linux/GioWorkspace.h"

#include "platform/PrivateFile.h"
#include "platform/linux/ChildWatch.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/GLibPointers.h"
#include "platform/linux/LaunchContext.h"
#include "platform/linux/LaunchReport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <utility>

namespace quorvantel::platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr qint64 maximumEntrySize = qint64{1024} * 1024;
/// Later than this, the user no longer expects another panel than the one that did not open.
constexpr std::chrono::seconds panelPatience{2};

/// Milliseconds that an application has to start and to answer.
constexpr int activationTimeout = 25'000;

/// What the program has in place of the launcher's standard input and output.
class NullDevice {
public:
    NullDevice() : m_descriptor(open("/dev/null", O_RDWR | O_CLOEXEC)) {}
    NullDevice(const NullDevice&) = delete;
    NullDevice& operator=(const NullDevice&) = delete;
    ~NullDevice() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// Hides the session bus from GIO, which would connect to it before it executes an entry's program
/// and wait for it without a limit.
class HiddenSessionBus {
public:
    HiddenSessionBus()
        : m_address(qgetenv(variable)), m_isSet(qEnvironmentVariableIsSet(variable)) {
        qputenv(variable, "disabled:");
    }
    HiddenSessionBus(const HiddenSessionBus&) = delete;
    HiddenSessionBus& operator=(const HiddenSessionBus&) = delete;
    ~HiddenSessionBus() {
        if (m_isSet) {
            qputenv(variable, m_address);
        } else {
            qunsetenv(variable);
        }
    }

private:
    static constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

    QByteArray m_address;
    bool m_isSet;
};

/// Runs in the new process before its program.
void leaveSession(gpointer /*data*/) {
    setsid();
}

QString takeMessage(GError* error) {
    return QString::fromUtf8(GErrorPointer(error)->message);
}

/// Says why GIO made nothing of a desktop entry.
QString entryProblem(const QString& path) {
    const FileContent content = readRegularFile(path, maximumEntrySize);
    if (const auto* error = std::get_if<FileError>(&content)) {
        return describe(*error);
    }
    const DesktopEntry entry(std::get<QByteArray>(content));
    if (!entry.syntaxError().isEmpty()) {
        return entry.syntaxError();
    }
    const QString command = entry.text(G_KEY_FILE_DESKTOP_KEY_EXEC);
    return command.isEmpty() ? QStringLiteral("not the entry of an application")
                             : QStringLiteral("program not found: %1").arg(command);
}

/// Whether the entry wants a message on the session bus rather than its program executed.
bool isActivatable(GDesktopAppInfo* entry, const QString& path) {
    const QByteArray name = QFile::encodeName(QFileInfo(path).completeBaseName());
    return g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE) !=
               FALSE &&
           g_dbus_is_name(name.constData()) != FALSE &&
           g_dbus_is_unique_name(name.constData()) == FALSE;
}

/// Reads an entry for GIO; null when it is of no use. `isBusThere` tells whether it can be
/// activated.
GObjectPointer<GDesktopAppInfo> readEntry(const QString& path, bool isBusThere) {
    // GIO would wait for the writer of a FIFO.
    if (!QFileInfo(path).isFile()) {
        return nullptr;
    }
    const QByteArray file = QFile::encodeName(path);
    GObjectPointer<GDesktopAppInfo> entry(g_desktop_app_info_new_from_filename(file.constData()));
    const GKeyFilePointer keys(g_key_file_new());
    if (entry || !isBusThere ||
        !g_key_file_load_from_file(keys.get(), file.constData(), G_KEY_FILE_NONE, nullptr) ||
        !g_key_file_get_boolean(keys.get(), G_KEY_FILE_DESKTOP_GROUP,
                                G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE, nullptr)) {
        return entry;
    }
    // GIO refuses an entry whose program is missing, also where a message takes its place.
    g_key_file_remove_key(keys.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_EXEC,
                          nullptr);
    return GObjectPointer<GDesktopAppInfo>(g_desktop_app_info_new_from_keyfile(keys.get()));
}

bool announcesStart(GDesktopAppInfo* entry, bool unlessDenied) {
    constexpr const char* key = G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY;
    return g_desktop_app_info_get_boolean(entry, key) != FALSE ||
           (unlessDenied && g_desktop_app_info_has_key(entry, key) == FALSE);
}

void announce(StartupNotifier& notifier, GDesktopAppInfo* entry, const QString& path,
              StartupNotifier::Announced announced) {
    const GText icon(g_desktop_app_info_get_string(entry, G_KEY_FILE_DESKTOP_KEY_ICON));
    notifier.begin(g_app_info_get_display_name(G_APP_INFO(entry)),
                   QFileInfo(path).fileName().toUtf8(), icon.get(), std::move(announced));
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
            reported->succeed();
        } else {
            reported->fail(takeMessage(error));
        }
    };
    g_dbus_connection_call(bus, name.constData(), object.constData(), "org.freedesktop.Application",
                           "Activate", g_variant_new("(a{sv})", &platformData), nullptr,
                           G_DBUS_CALL_FLAGS_NONE, activationTimeout, nullptr, finished,
                           new LaunchReport(std::move(report)));
}

void execute(GDesktopAppInfo* entry, const QByteArray& startupId, LaunchReport report) {
    const auto started = [](GDesktopAppInfo* /*entry*/, GPid child, gpointer data) {
        watchChild(child, *static_cast<LaunchReport*>(data));
    };
    // It takes the environment over as it is now, before the bus is hidden.
    const auto context = makeLaunchContext(startupId);
    presentDesktop(context.get(), entry);
    const NullDevice null;
    const HiddenSessionBus hiddenBus;
    GError* error = nullptr;
    const gboolean isStarted = g_desktop_app_info_launch_uris_as_manager_with_fds(
        entry, nullptr, context.get(),
        static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD), leaveSession,
        nullptr, started, &report, null.descriptor(), null.descriptor(), null.descriptor(), &error);
    if (isStarted == FALSE) {
        report.fail(takeMessage(error));
    }
}

} // namespace

GioWorkspace::GioWorkspace(const BundleReader& bundles, StartupNotifier* notifier,
                           const DesktopSettingsPanels& settingsPanels)
    : m_bundles(bundles),
      m_notifier(notifier),
      m_settingsPanels(settingsPanels),
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
    const std::shared_ptr<GDesktopAppInfo> entry = readEntry(path, m_bus.get() != nullptr);
    if (!entry) {
        LaunchReport(m_alive, std::move(completion), nullptr, {}).fail(entryProblem(path));
        return;
    }
    const auto start = [this, alive = std::weak_ptr(m_alive), entry, path,
                        completion = std::move(completion)](const QByteArray& startupId) {
        if (alive.expired()) {
            return;
        }
        LaunchReport report(alive, completion, m_notifier, startupId);
        GDBusConnection* const bus = m_bus.get();
        if (bus != nullptr && isActivatable(entry.get(), path)) {
            activate(bus, path, startupId, std::move(report));
        } else {
            execute(entry.get(), startupId, std::move(report));
        }
    };
    const bool isAnnounced = announcesStart(entry.get(), notice == StartupNotice::UnlessDenied);
    if (isAnnounced && m_notifier != nullptr) {
        announce(*m_notifier, entry.get(), path, start);
    } else {
        start({});
    }
}

void GioWorkspace::openBundle(const QString& path, Completion completion) {
    LaunchReport report(m_alive, std::move(completion), nullptr, {});
    const std::optional<QVariantMap> info = m_bundles.infoDictionary(path);
    const QString program =
        info ? info->value(QStringLiteral("CFBundleExecutable")).toString() : QString();
    if (program.isEmpty() || program.contains(QLatin1Char('/'))) {
        report.fail(QStringLiteral("not the bundle of an application"));
        return;
    }
    QByteArray file = QFile::encodeName(path + QStringLiteral("/Contents/MacOS/") + program);
    std::array<gchar*, 2> arguments{file.data(), nullptr};
    const auto context = makeLaunchContext({});
    const GTextList environment(g_app_launch_context_get_environment(context.get()));
    const NullDevice null;
    GPid child = 0;
    GError* error = nullptr;
    if (g_spawn_async_with_fds(QFile::encodeName(QDir::homePath()).constData(), arguments.data(),
                               environment.get(), G_SPAWN_DO_NOT_REAP_CHILD, leaveSession, nullptr,
                               &child, null.descriptor(), null.descriptor(), null.descriptor(),
                               &error) == FALSE) {
        report.fail(takeMessage(error));
        return;
    }
    watchChild(child, std::move(report));
}

} // namespace quorvantel::platform
