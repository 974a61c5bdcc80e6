#include "e2e/LauncherSession.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <thread>
#include <utility>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;

const QByteArray withoutBus =
    "Quorvantel: no session bus answers, so the desktop's menus do not reach it\n";

class InstanceTest : public ::testing::Test {
protected:
    /// Runs a program to its end; -1 when it has none or crashes.
    static int run(const ChildProcess::Launch& launch) {
        const auto exit = ChildProcess(launch).waitForExit(patience);
        return exit && !exit->crashed ? exit->status : -1;
    }

    /// Starts the launcher once more.
    int startAgain() { return run(session.launch()); }

    bool waitForPanel(std::chrono::milliseconds timeout = patience) {
        return waitUntil(
            [this] { return session.panel() && session.desktop().isKeyboardGrabbed(); }, timeout);
    }

    /// Has the desktop ask the launcher for something, as its icon's menu does.
    int askFor(const QString& action) {
        ChildProcess::Launch launch = session.launch();
        launch.program = QStringLiteral("gapplication");
        launch.arguments = QStringList{QStringLiteral("action"),
                                       QStringLiteral("org.quorvantel.Quorvantel"), action};
        return run(launch);
    }

    bool waitForWindow(const QByteArray& title) {
        return waitUntil([&] { return session.desktop().activeTitle() == title; });
    }

    LauncherSession session;
};

TEST_F(InstanceTest, AFurtherStartDoesWhatTheHotKeyDoesAndEnds) {
    session.addApplication(QStringLiteral("zebra"), QStringLiteral("Zebra"));
    session.addApplication(QStringLiteral("quagga"), QStringLiteral("Quagga"));
    session.start();
    for (const auto& [name, count] : {std::pair("zebra", 1), std::pair("quagga", 2)}) {
        EXPECT_EQ(startAgain(), 0);
        ASSERT_TRUE(waitForPanel());
        session.search(name, 1);
        session.keyboard().press({XK_Return});
        EXPECT_EQ(session.waitForRuns(QString::fromLatin1(name), 1).size(), 1U);
        EXPECT_TRUE(waitUntil([&, expected = count] {
            const auto history = session.dataFile(QStringLiteral("frecency.json"));
            return history && history->size() == expected;
        })) << "a launch is lost";
    }

    EXPECT_EQ(startAgain(), 0);
    ASSERT_TRUE(waitForPanel());
    // Else it would be the second click of a double click.
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    EXPECT_EQ(startAgain(), 0);
    EXPECT_TRUE(session.waitForDismissal());

    ChildProcess::Launch elsewhere = session.launch();
    elsewhere.environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":999"));
    EXPECT_EQ(run(elsewhere), 1);
    const QByteArray refusal = "\nQuorvantel: the launcher already runs on display ";
    EXPECT_TRUE(session.output().contains(refusal)) << session.output().toStdString();
    EXPECT_FALSE(session.panel());
}

TEST_F(InstanceTest, AKeyOfTheDesktopsOwnShowsAndHidesThePanel) {
    QFile settings(QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME") + "/openbox/rc.xml"));
    QDir().mkpath(QFileInfo(settings).path());
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("<openbox_config xmlns='http://openbox.org/3.4/rc'><keyboard>"
                   "<keybind key='W-r'><action name='Execute'><command>" QUORVANTEL_PROGRAM
                   "</command></action></keybind></keyboard></openbox_config>");
    settings.close();
    session.start();
    ChildProcess::Launch openbox = session.launch();
    openbox.program = QStringLiteral("openbox");
    openbox.arguments = QStringList{QStringLiteral("--reconfigure")};
    EXPECT_EQ(run(openbox), 0);
    // The window manager takes a moment to know the key.
    ASSERT_TRUE(waitUntil([this] {
        session.keyboard().press({XK_Super_L, XK_r});
        return waitForPanel(std::chrono::seconds(1));
    }));
    session.search("wifi", 2);
    session.keyboard().press({XK_Super_L, XK_r});
    EXPECT_TRUE(session.waitForDismissal());
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_FALSE(session.panel()) << "it comes back";
}

TEST_F(InstanceTest, OneOfFiftyStartsAtOnceStays) {
    std::deque<ChildProcess> starts;
    for (int count = 0; count < 50; ++count) {
        starts.emplace_back(session.launch());
    }
    const auto running = [&starts] {
        return std::ranges::count_if(starts, [](ChildProcess& start) { return start.isRunning(); });
    };
    EXPECT_TRUE(waitUntil([&] { return running() == 1; })) << running();
    EXPECT_TRUE(waitForPanel()) << session.output().toStdString();
    EXPECT_EQ(session.output().count("Quorvantel: press "), 1) << session.output().toStdString();
    EXPECT_EQ(running(), 1);
}

TEST_F(InstanceTest, AKilledLauncherIsNotInTheWayAndAStoppedOneKeepsItsFiles) {
    session.start();
    session.signal(SIGKILL);
    EXPECT_TRUE(session.waitForExit());
    session.start();
    session.signal(SIGSTOP);
    EXPECT_EQ(startAgain(), 1);
    EXPECT_TRUE(session.output().endsWith("\nQuorvantel: the launcher that runs does not answer\n"))
        << session.output().toStdString();
    session.signal(SIGCONT);
    EXPECT_TRUE(waitForPanel()) << "the request is lost";
}

TEST_F(InstanceTest, GoesOnWithoutABusThatIsAbsentOrSilent) {
    SessionBus silent(QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR")));
    silent.signal(SIGSTOP);
    for (const QString& address :
         {silent.address(), QStringLiteral("unix:path=/absent"), QString()}) {
        session.start("Quorvantel: press ",
                      {{QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address}});
        EXPECT_TRUE(session.output().startsWith(withoutBus)) << session.output().toStdString();
        EXPECT_EQ(session.output().count('\n'), 2) << session.output().toStdString();
        EXPECT_EQ(startAgain(), 0);
        EXPECT_TRUE(waitForPanel());
        session.terminate();
    }
    silent.signal(SIGCONT);
}

TEST_F(InstanceTest, AStartThatTheUserWaitsForShowsThePanel) {
    session.start("Quorvantel: press ",
                  {{QStringLiteral("DESKTOP_STARTUP_ID"), QStringLiteral("desktop_TIME1")}});
    EXPECT_TRUE(waitForPanel());
}

TEST_F(InstanceTest, TheIconsMenuOpensWindowsInFrontAndQuits) {
    session.start();
    EXPECT_EQ(askFor(QStringLiteral("settings")), 0);
    EXPECT_TRUE(waitForWindow("Quorvantel Settings"));
    EXPECT_EQ(askFor(QStringLiteral("help")), 0);
    EXPECT_TRUE(waitForWindow("Quorvantel Help"));
    EXPECT_EQ(askFor(QStringLiteral("settings")), 0);
    EXPECT_TRUE(waitForWindow("Quorvantel Settings"));
    EXPECT_EQ(askFor(QStringLiteral("quit")), 0);
    const auto exit = session.waitForExit();
    ASSERT_TRUE(exit);
    EXPECT_FALSE(exit->crashed);
    EXPECT_EQ(exit->status, 0);
}

} // namespace
} // namespace quorvantel
