#pragma once

#include "support/ChildProcess.h"
#include "support/IsolatedHome.h"
#include "support/Keyboard.h"
#include "support/Pointer.h"
#include "support/SessionBus.h"
#include "support/WaitUntil.h"
#include "support/WindowManager.h"
#include "support/XConnection.h"
#include "support/XDesktop.h"
#include "support/XServer.h"

#include <QJsonObject>
#include <QMap>
#include <QRect>
#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <optional>
#include <vector>

namespace quorvantel::testing {

/// A user at a desktop with nothing but the launcher's real program: a home folder, an X display
/// with a window manager, a session bus, and applications that leave a proof when they run.
///
/// Operations that start something return when it has happened and throw std::runtime_error when
/// it has not in time.
class LauncherSession {
public:
    /// What the panel measures while it lists nothing, in pixels at this display's scale of 1.
    static constexpr int emptyPanelHeight = 56;
    static constexpr int noResultsPanelHeight = 109;
    static constexpr int panelWidth = 640;

    explicit LauncherSession(const QString& windowManager = QStringLiteral("openbox"));

    /// Installs an application (Desktop Entry Specification) whose desktop file ID is `id` plus
    /// ".desktop". It runs with the arguments `id` and "two words".
    void addApplication(const QString& id, const QString& name);

    /// Stores a summon hotkey in the launcher's settings: a virtual key code and a Carbon modifier
    /// mask.
    void storeHotKey(int keyCode, int modifiers);

    /// Gives the keyboard the layouts that these arguments of setxkbmap name.
    void setKeyboardLayout(const QStringList& arguments) const;

    /// How a program is started in this session: the launcher, unless it is changed.
    ChildProcess::Launch launch() const;

    /// Starts the launcher, with these variables besides, and returns when it has printed
    /// `expected`, by default the line that says how to summon it.
    void start(const QByteArray& expected = "Quorvantel: press ",
               const QMap<QString, QString>& environment = {});

    /// The same with a start that was changed in other ways, such as by a tool around the launcher.
    void start(const ChildProcess::Launch& changed,
               const QByteArray& expected = "Quorvantel: press ");

    /// Ends the launcher as the session does at logout, and says how it ended.
    std::optional<ChildProcess::Exit> terminate();

    /// Sends the launcher a signal, such as SIGSTOP.
    void signal(int number) { m_launcher->signal(number); }

    /// How the launcher ended; absent when it still runs after a while.
    std::optional<ChildProcess::Exit> waitForExit() { return m_launcher->waitForExit(patience); }

    /// Sends the session bus a signal, such as SIGSTOP.
    void signalBus(int number) { m_bus.signal(number); }
    void signalWindowManager(int number) { m_windowManager.signal(number); }
    /// Nothing that needs the display is to be called while it is stopped or gone.
    void signalDisplay(int number) { m_server.signal(number); }

    /// Whether the running launcher comes to rest: uses no processor time for a while.
    bool waitForRest() const;

    /// Of the running launcher.
    pid_t processId() const { return static_cast<pid_t>(m_launcher->pid()); }

    bool isRunning() { return m_launcher && m_launcher->isRunning(); }

    void pressDefaultHotKey();

    /// Brings up the hidden panel by the default hotkey, until typing reaches it.
    void summon();

    /// Types a query into the panel and returns when the panel lists `results` results.
    void search(const QByteArray& query, int results);

    /// Where the panel is; absent while it is hidden.
    std::optional<QRect> panel() const;

    bool waitForPanelHeight(int height) const;

    /// Whether the panel disappears and gives the keyboard back.
    bool waitForDismissal() const;

    /// Waits for the application to have run `count` times and returns the arguments of each run;
    /// fewer runs when that does not come about.
    std::vector<QStringList> waitForRuns(const QString& id, std::size_t count) const;

    /// Everything that the launcher printed.
    QByteArray output() const;

    /// A file of the launcher's data folder; absent when it is missing or no JSON object.
    std::optional<QJsonObject> dataFile(const QString& name) const;

    /// The same once it is there; absent when it does not come.
    std::optional<QJsonObject> waitForDataFile(const QString& name) const;

    QByteArray display() const { return m_server.display(); }
    QString busAddress() const { return m_bus.address(); }
    const XConnection& connection() const { return m_connection; }
    const XDesktop& desktop() const { return m_desktop; }
    Keyboard& keyboard() { return m_keyboard; }
    Pointer& pointer() { return m_pointer; }

private:
    QString homeFile(const QString& relativePath) const;
    std::vector<QStringList> runs(const QString& id) const;

    IsolatedHome m_home;
    XServer m_server;
    XConnection m_connection;
    XDesktop m_desktop;
    Keyboard m_keyboard;
    Pointer m_pointer;
    SessionBus m_bus;
    WindowManager m_windowManager;
    std::optional<ChildProcess> m_launcher;
};

/// What the panel measures while it lists one to eight results.
constexpr int panelHeight(int results) {
    return LauncherSession::emptyPanelHeight + 1 + results * 48 + (results - 1) * 2 + 12;
}

} // namespace quorvantel::testing
