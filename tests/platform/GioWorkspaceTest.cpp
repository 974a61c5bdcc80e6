#include "platform/linux/GioWorkspace.h"

#include "platform/linux/GLibPointers.h"
#include "platform/linux/PropertyListBundleReader.h"
#include "support/LogLines.h"
#include "support/RecordingScript.h"
#include "support/SessionBus.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <dlfcn.h>
#include <fcntl.h>
#include <gio/gio.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <future>
#include <optional>
#include <string>

namespace {

/// How often this program's environment was changed, by the libraries, too.
int environmentChanges = 0;

template <typename... Arguments>
int changeEnvironment(const char* function, Arguments... arguments) {
    ++environmentChanges;
    return reinterpret_cast<int (*)(Arguments...)>(dlsym(RTLD_NEXT, function))(arguments...);
}

} // namespace

extern "C" int setenv(const char* name, const char* value, int replaces) noexcept {
    return changeEnvironment("setenv", name, value, replaces);
}

extern "C" int unsetenv(const char* name) noexcept {
    return changeEnvironment("unsetenv", name);
}

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

class RecordingNotifier final : public StartupNotifier {
public:
    void begin(const QByteArray& applicationName, const QByteArray& desktopFileId,
               const QByteArray& iconName, Announced announced) override {
        begun.append(applicationName + '|' + desktopFileId + '|' + iconName);
        const auto answer = [announced, kept = kept] { announced("startup-id_TIME7"); };
        isLate ? QTimer::singleShot(1, answer) : answer();
    }

    void fail(const QByteArray& id) override { failed.append(id); }

    bool isLate = false;
    /// Until the answer has been given.
    std::shared_ptr<int> kept = std::make_shared<int>();
    QByteArrayList begun;
    QByteArrayList failed;
};

/// An application's part in its activation: writes the call down and answers it.
GDBusMessage* answerActivation(GDBusConnection* service, GDBusMessage* message,
                               gboolean /*isIncoming*/, gpointer data) {
    if (qstrcmp(g_dbus_message_get_member(message), "Activate") != 0) {
        return message;
    }
    const GText body(g_variant_print(g_dbus_message_get_body(message), FALSE));
    static_cast<std::promise<std::string>*>(data)->set_value(
        std::string(g_dbus_message_get_path(message)) + ' ' +
        g_dbus_message_get_interface(message) + ".Activate " + body.get());
    const GObjectPointer<GDBusMessage> reply(g_dbus_message_new_method_reply(message));
    g_dbus_connection_send_message(service, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                   nullptr);
    g_object_unref(message);
    return nullptr;
}

class GioWorkspaceTest : public ::testing::Test {
protected:
    GioWorkspaceTest() { environment.set("DESKTOP_STARTUP_ID", "the-launcher's-own"); }

    /// Begins anew with the environment as it is now.
    void makeWorkspace(const QString& busAddress = {}) {
        workspace.emplace(bundles, &notifier, panels, environment, busAddress.toStdString());
    }

    void open(const QString& path) {
        if (!workspace) {
            makeWorkspace();
        }
        const int changesBefore = environmentChanges;
        workspace->openApplication(QUrl::fromLocalFile(path),
                                   [this](const QString& text) { errors.append(text); });
        EXPECT_EQ(environmentChanges, changesBefore) << "which other threads may be reading";
    }

    QString writeEntry(const QByteArray& exec, const QByteArray& more = {}) {
        const QString path = inHome(u"entry.desktop"_s);
        writeFile(path, "[Desktop Entry]\nType=Application\nName=Entry\nIcon=entry\nExec=" + exec +
                            '\n' + more + '\n');
        return path;
    }

    QString writeBundle(const QString& name, const QByteArray& executable) {
        const QString path = inHome(name);
        writeFile(path + u"/Contents/Info.plist"_s,
                  "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>" +
                      executable + "</string></dict></plist>");
        return path;
    }

    bool hasReported() const {
        return waitUntil([this] { return !errors.isEmpty(); });
    }

    /// Waits for the program that writes down how it was started.
    bool hasRun() const {
        return hasReported() && waitUntil([] { return QFile::exists(inHome(u"record/done"_s)); });
    }

    /// The start of a line "Exec=" for the program that writes down how it was started.
    QByteArray recorder() const {
        writeProgram(inHome(u"program"_s), recordingScript);
        return QFile::encodeName(inHome(u"program"_s));
    }

    /// Opens a bundle or an entry for the program, while this process has a file open to leak, and
    /// expects it to run on its own.
    void expectRunsApart(const QString& path, const QString& program) {
        const int leaked = ::open("/dev/zero", O_RDONLY);
        open(path);
        ASSERT_TRUE(hasRun());
        ::close(leaked);
        EXPECT_EQ(errors, QStringList{QString()});
        EXPECT_NE(record(u"session"_s).value(0).toInt(), getsid(0));
        QByteArrayList files = record(u"descriptors"_s);
        files.removeAll(QFile::encodeName(program));
        EXPECT_EQ(files, (QByteArrayList{"/dev/null", "/dev/null", "/dev/null"}));
        EXPECT_TRUE(waitUntil([] { return !hasChildren(); }));
    }

    QByteArrayList record(const QString& name, char separator = '\n') const {
        QByteArrayList lines = readFile(inHome(u"record/"_s + name)).split(separator);
        lines.removeLast();
        return lines;
    }

    /// Whether any child, dead or alive, is left to this process.
    static bool hasChildren() {
        siginfo_t info{};
        return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
    }

    PropertyListBundleReader bundles;
    RecordingNotifier notifier;
    DesktopSettingsPanels panels{{}, {}};
    LaunchEnvironment environment;
    std::optional<GioWorkspace> workspace;
    QStringList errors;
};

TEST_F(GioWorkspaceTest, RunsAnEntrysProgramApartFromTheLauncher) {
    const QString program = inHome(u"some dir/program"_s);
    writeProgram(program, recordingScript);
    expectRunsApart(
        writeEntry(
            '"' + QFile::encodeName(program) +
            R"(" --flag "a b" "" "$HOME" "\\$PATH \\"\\`x\\` \\\\" 100%% %U %f %c %k %i %d%m end)"),
        program);
    const QByteArray entry = QFile::encodeName(inHome(u"entry.desktop"_s));
    EXPECT_EQ(record(u"arguments"_s),
              (QByteArrayList{"--flag", "a b", "", "$HOME", R"($PATH "`x` \)", "100%", "Entry",
                              entry, "--icon", "entry", "end"}));
    for (const QByteArray& variable : record(u"environment"_s, '\0')) {
        EXPECT_FALSE(variable.startsWith("DESKTOP_STARTUP_ID=")) << variable.toStdString();
    }
    EXPECT_TRUE(notifier.begun.isEmpty());
}

TEST_F(GioWorkspaceTest, RunsTheProgramOfABundleApartFromTheLauncher) {
    const QString bundle = writeBundle(u"An \"odd\" 100% $HOME 'app' #1.app"_s, "my program");
    const QString program = bundle + u"/Contents/MacOS/my program"_s;
    writeProgram(program, recordingScript);
    expectRunsApart(bundle, program);
    EXPECT_EQ(record(u"arguments"_s), QByteArrayList{""});
}

TEST_F(GioWorkspaceTest, AnnouncesTheStartOfAnEntryThatWantsIt) {
    notifier.isLate = true;
    open(writeEntry(recorder(), "StartupNotify=true"));
    ASSERT_TRUE(hasRun());
    EXPECT_EQ(notifier.begun, QByteArrayList{"Entry|entry.desktop|entry"});
    EXPECT_TRUE(record(u"environment"_s, '\0').contains("DESKTOP_STARTUP_ID=startup-id_TIME7"));
    EXPECT_TRUE(record(u"environment"_s, '\0').contains("XDG_ACTIVATION_TOKEN=startup-id_TIME7"));
    EXPECT_TRUE(notifier.failed.isEmpty());
}

TEST_F(GioWorkspaceTest, ReportsProgramsThatCannotBeExecuted) {
    writeProgram(inHome(u"no-interpreter"_s), "#!/no/such/interpreter\n");
    open(writeEntry(QFile::encodeName(inHome(u"no-interpreter"_s)), "StartupNotify=true"));
    ASSERT_TRUE(hasReported());
    EXPECT_EQ(notifier.failed, QByteArrayList{"startup-id_TIME7"});

    open(writeEntry("no-such-program --flag"));
    EXPECT_TRUE(errors.back().contains(u"no-such-program"_s)) << errors.back().toStdString();

    writeFile(inHome(u"broken.desktop"_s), "nonsense");
    makeFifo(inHome(u"fifo.desktop"_s));
    writeBundle(u"Empty.app"_s, "program");
    writeBundle(u"Escape.app"_s, "../../../bin/true");
    for (const QString& name : {u"missing.desktop"_s, u"broken.desktop"_s, u"fifo.desktop"_s,
                                u"Missing.app"_s, u"Empty.app"_s, u"Escape.app"_s}) {
        open(inHome(name));
    }
    EXPECT_EQ(errors.size(), 8);
    EXPECT_FALSE(errors.contains(QString()));
    EXPECT_EQ(notifier.begun.size(), 1);
    EXPECT_FALSE(hasChildren());
}

TEST_F(GioWorkspaceTest, TakesAFailureOfTheProgramItselfForAStart) {
    for (const char* status : {"3", "127", "255"}) {
        errors.clear();
        writeProgram(inHome(u"program"_s), QByteArray("#!/bin/sh\nexit ") + status);
        open(writeEntry(QFile::encodeName(inHome(u"program"_s))));
        ASSERT_TRUE(hasReported());
        EXPECT_EQ(errors, QStringList{QString()});
    }
}

TEST_F(GioWorkspaceTest, RunsATerminalProgramInATerminal) {
    writeProgram(inHome(u"bin/xterm"_s),
                 "#!/bin/sh\necho \"$1\" >\"$HOME/terminal\"\nshift\nexec \"$@\"\n");
    qputenv("PATH", QFile::encodeName(inHome(u"bin"_s)));
    open(writeEntry(recorder() + " \"a b\"", "Terminal=true"));
    ASSERT_TRUE(hasRun());
    EXPECT_EQ(errors, QStringList{QString()});
    EXPECT_EQ(readFile(inHome(u"terminal"_s)), "-e\n");
    EXPECT_EQ(record(u"arguments"_s), QByteArrayList{"a b"});

    QFile::remove(inHome(u"bin/xterm"_s));
    open(inHome(u"entry.desktop"_s));
    EXPECT_EQ(errors.back(), u"Unable to find terminal required for application"_s);
}

TEST_F(GioWorkspaceTest, ReportsNothingOnceItIsGone) {
    notifier.isLate = true;
    open(writeEntry(recorder(), "StartupNotify=true"));
    workspace.reset();
    const std::weak_ptr<int> kept = notifier.kept;
    notifier.kept.reset();
    EXPECT_TRUE(waitUntil([&kept] { return kept.expired(); }));
    EXPECT_FALSE(QFile::exists(inHome(u"record"_s)));
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(GioWorkspaceTest, ActivatesAnEntryByTheSessionBus) {
    writeFile(inHome(u".local/share/dbus-1/services/org.example.Silent.service"_s),
              "[D-BUS Service]\nName=org.example.Silent\nExec=/usr/bin/env STATUS=1 " + recorder() +
                  " activated\n");
    makeWorkspace(u"unix:path="_s + inHome(u"bus"_s));
    // The launcher finds a bus that comes later, or that it passed over at its start.
    const SessionBus bus(inHome({}));
    QFile::link(bus.address().section(u',', 0, 0).section(u'=', 1), inHome(u"bus"_s));
    for (const QString& name : {u"org.example.Silent"_s, u"org.example.Missing"_s}) {
        const QString path = inHome(name + u".desktop"_s);
        QFile::copy(writeEntry("sh -c 'exit 0'", "DBusActivatable=true"), path);
        // Until the bus answers, the entry's program is executed.
        EXPECT_TRUE(waitUntil([&] {
            errors.clear();
            open(path);
            return hasReported() && errors.front().contains(name);
        })) << errors.front().toStdString();
    }
    EXPECT_EQ(record(u"arguments"_s), QByteArrayList{"activated"});

    // One that is there already, and answers.
    std::promise<std::string> message;
    const GObjectPointer<GDBusConnection> service(g_dbus_connection_new_for_address_sync(
        bus.address().toUtf8().constData(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    g_dbus_connection_add_filter(service.get(), answerActivation, &message, nullptr);
    g_bus_own_name_on_connection(service.get(), "org.example.My-App", G_BUS_NAME_OWNER_FLAGS_NONE,
                                 nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(g_dbus_connection_flush_sync(service.get(), nullptr, nullptr), FALSE);
    const QString path = inHome(u"org.example.My-App.desktop"_s);
    QFile::copy(writeEntry("/none", "DBusActivatable=true\nStartupNotify=true"), path);
    errors.clear();
    open(path);
    ASSERT_TRUE(hasReported());
    ASSERT_EQ(errors, QStringList{QString()});
    EXPECT_EQ(message.get_future().get(),
              "/org/example/My_App org.freedesktop.Application.Activate "
              "({'desktop-startup-id': <'startup-id_TIME7'>, "
              "'activation-token': <'startup-id_TIME7'>},)");
}

TEST_F(GioWorkspaceTest, ExecutesAnActivatableEntryWhereNoBusAnswers) {
    SessionBus stopped(inHome({}));
    stopped.signal(SIGSTOP);
    const QString path = inHome(u"org.example.App.desktop"_s);
    QFile::rename(writeEntry(recorder(), "DBusActivatable=true"), path);
    for (const QByteArray& address : {stopped.address().toUtf8(), QByteArray("unix:path=/none")}) {
        environment.set("DBUS_SESSION_BUS_ADDRESS", address.constData());
        makeWorkspace(QString::fromUtf8(address));
        QDir(inHome(u"record"_s)).removeRecursively();
        errors.clear();
        open(path);
        ASSERT_TRUE(hasRun());
        EXPECT_EQ(errors, QStringList{QString()});
        EXPECT_NE(record(u"session"_s).value(0).toInt(), getsid(0));
        EXPECT_TRUE(record(u"environment"_s, '\0').contains("DBUS_SESSION_BUS_ADDRESS=" + address));
    }
    stopped.signal(SIGCONT);
}

/// A desktop and the panel that shows its displays.
struct DisplaysPanel {
    QByteArray currentDesktops;
    QString entry;
    QByteArray command;
};

const DisplaysPanel displaysPanels[]{
    {"KDE", u"kcm_kscreen"_s, "systemsettings kcm_kscreen"},
    {"XFCE", u"xfce-display-settings"_s, "xfce4-display-settings\nOnlyShowIn=XFCE;"},
    {"mate", u"mate-display-properties"_s, "mate-display-properties\nStartupNotify=true"},
    {"LXQt", u"lxqt-config-monitor"_s, "lxqt-config-monitor"},
    {"X-Cinnamon", u"cinnamon-display-panel"_s, "cinnamon-settings display"},
    {"ubuntu:GNOME", u"gnome-display-panel"_s, "gnome-control-center display\nNoDisplay=true"},
};

class SettingsPanelTest : public GioWorkspaceTest {
protected:
    SettingsPanelTest() { qputenv("PATH", QFile::encodeName(inHome(u"bin"_s)) + ":/usr/bin:/bin"); }

    /// Installs an entry, and its program unless that is to be missing.
    static void install(const QString& entry, const QByteArray& command, bool hasProgram = true) {
        writeFile(inHome(u"panels/"_s + entry + u".desktop"_s),
                  "[Desktop Entry]\nType=Application\nName=Panel\nExec=" + command + '\n');
        const QByteArray program = command.split('\n').front().split(' ').front();
        if (hasProgram) {
            writeProgram(inHome(u"bin/"_s + QFile::decodeName(program)), recordingScript);
        }
    }

    /// Opens the pane of the displays and waits for the end of its program.
    bool openDisplays(const QByteArray& currentDesktops) {
        environment.set("XDG_CURRENT_DESKTOP", currentDesktops.constData());
        panels = DesktopSettingsPanels({inHome(u"panels"_s)}, currentDesktops);
        makeWorkspace();
        const QUrl url(u"x-apple.systempreferences:com.apple.Displays-Settings.extension"_s);
        return workspace->openSettings(url) && waitUntil([] { return !hasChildren(); });
    }

    LogLines log{u"Quorvantel: "_s};
};

TEST_F(SettingsPanelTest, OpensThePanelOfTheRunningDesktop) {
    for (const DisplaysPanel& panel : displaysPanels) {
        install(panel.entry, panel.command);
    }
    for (const DisplaysPanel& panel : displaysPanels) {
        ASSERT_TRUE(openDisplays(panel.currentDesktops));
        const QByteArrayList command = panel.command.split('\n').front().split(' ');
        EXPECT_EQ(record(u"arguments"_s), QByteArrayList{command.value(1)});
        EXPECT_EQ(notifier.begun.back(), "Panel|" + panel.entry.toUtf8() + ".desktop|");
        const QByteArrayList environment = record(u"environment"_s, '\0');
        EXPECT_TRUE(environment.contains("XDG_ACTIVATION_TOKEN=startup-id_TIME7"));
        EXPECT_TRUE(environment.contains("XDG_CURRENT_DESKTOP=" + panel.currentDesktops));
        EXPECT_NE(record(u"session"_s).value(0).toInt(), getsid(0));
    }
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(SettingsPanelTest, PassesOverWhatCannotShowThePane) {
    EXPECT_FALSE(openDisplays("GNOME"));
    EXPECT_EQ(log.lines().size(), 1);

    install(u"gnome-display-panel"_s, "gnome-control-center display", false);
    EXPECT_TRUE(openDisplays("GNOME"));
    EXPECT_EQ(log.lines().size(), 2) << "the program is missing";

    install(u"arandr"_s, "arandr\nHidden=true");
    install(u"systemsettings"_s, "systemsettings\nOnlyShowIn=KDE;\nStartupNotify=false");
    environment.set("STATUS", "3");
    EXPECT_TRUE(openDisplays("GNOME"));
    EXPECT_TRUE(record(u"environment"_s, '\0').contains("XDG_CURRENT_DESKTOP=KDE"));
    EXPECT_EQ(notifier.begun.size(), 0)
        << "the only entry with a program does not report its start";
    EXPECT_EQ(log.lines().size(), 3) << "the program failed at once";
}

} // namespace
} // namespace quorvantel::platform
