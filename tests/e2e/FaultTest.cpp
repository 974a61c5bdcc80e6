#include "e2e/LauncherSession.h"
#include "support/ForeignGrab.h"
#include "support/TestFiles.h"

#include <QJsonDocument>

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using ::testing::SizeIs;
using namespace ::quorvantel::testing;

const QString zinc = u"zinc"_s;
const QString history = u"frecency.json"_s;

/// What the desktop, the disk and other programs do to a launcher that runs.
class FaultTest : public ::testing::Test {
protected:
    FaultTest() {
        session.addApplication(zinc, u"Zinc"_s);
        QJsonObject launches;
        for (int number = 0; number < 20; ++number) {
            launches[u"org.example.Launched%1"_s.arg(number)] =
                QJsonObject{{u"f"_s, 1.0}, {u"lastUpdate"_s, 8e8}};
        }
        writeFile(dataFolder() + history, QJsonDocument(launches).toJson());
    }

    static QString dataFolder() { return inHome(u".local/share/Quorvantel/"_s); }

    /// A start of the launcher by a shell, after these commands.
    ChildProcess::Launch startAfter(const QString& commands) const {
        ChildProcess::Launch launch = session.launch();
        launch.arguments = QStringList{u"-c"_s, commands + u"exec \""_s + launch.program + u'"'};
        launch.program = u"sh"_s;
        return launch;
    }

    /// Launches the application once more.
    void use() {
        session.summon();
        session.search("zinc", 1);
        session.keyboard().press({XK_Return});
        EXPECT_TRUE(session.waitForDismissal());
        ++m_runs;
        EXPECT_THAT(session.waitForRuns(zinc, m_runs), SizeIs(m_runs));
    }

    /// Whether the history on the disk comes to hold so many applications, each of them whole.
    bool waitForHistory(qsizetype count) const {
        return waitUntil([&] {
            const auto file = session.dataFile(history);
            return file && file->size() == count;
        });
    }

    LauncherSession session;

private:
    std::size_t m_runs = 0;
};

TEST_F(FaultTest, AFullDiskTakesNothingAwayAndWhatFollowsIsSavedOnceThereIsRoom) {
    // Half a kibibyte is less than the history. A full disk sends no signal.
    session.start(startAfter(u"trap '' XFSZ; ulimit -S -f 1; "_s));
    const QByteArray before = readFile(dataFolder() + history);
    use();
    EXPECT_TRUE(session.waitForRest());
    EXPECT_EQ(readFile(dataFolder() + history), before);
    EXPECT_THAT(QDir(dataFolder()).entryList(QDir::Files), SizeIs(1)) << "half a file is left";
    const rlimit room{RLIM_INFINITY, RLIM_INFINITY};
    ASSERT_EQ(::prlimit(session.processId(), RLIMIT_FSIZE, &room, nullptr), 0);
    use();
    EXPECT_TRUE(waitForHistory(21));
    EXPECT_NEAR(session.dataFile(history)->value(zinc)[u"f"_s].toDouble(), 2, 1e-3)
        << "the launch while the disk was full is lost";
}

TEST_F(FaultTest, AFolderThatCannotBeWrittenStopsNoLaunch) {
    ASSERT_TRUE(QFile::setPermissions(dataFolder(), QFile::ReadOwner | QFile::ExeOwner));
    ChildProcess::Launch launch = session.launch();
    if (::geteuid() == 0) {
        // The administrator may write anywhere; without this capability not even he.
        launch.arguments = QStringList{u"--bounding-set=-dac_override"_s, launch.program};
        launch.program = u"setpriv"_s;
    }
    session.start(launch);
    use();
    EXPECT_TRUE(session.waitForRest());
    EXPECT_TRUE(waitForHistory(20));
    ASSERT_TRUE(QFile::setPermissions(dataFolder(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    use();
    EXPECT_TRUE(waitForHistory(21));
}

TEST_F(FaultTest, AFolderThatIsReplacedMeanwhileGetsTheWholeHistory) {
    session.start();
    ASSERT_TRUE(QDir().rename(dataFolder(), inHome(u"away"_s)));
    use();
    EXPECT_TRUE(waitForHistory(21)) << "a removed folder is made anew";
    ASSERT_TRUE(QDir(dataFolder()).removeRecursively());
    writeFile(dataFolder().chopped(1), "a file in its place");
    use();
    EXPECT_TRUE(session.waitForRest());
    EXPECT_EQ(readFile(dataFolder().chopped(1)), "a file in its place");
    ASSERT_TRUE(QFile::remove(dataFolder().chopped(1)));
    ASSERT_TRUE(QFile::link(inHome(u"away"_s), dataFolder().chopped(1)));
    use();
    EXPECT_TRUE(waitForHistory(21)) << "a link is followed";
    EXPECT_TRUE(QFileInfo(dataFolder().chopped(1)).isSymLink());
}

TEST_F(FaultTest, NeitherAWindowManagerNorABusIsNeeded) {
    session.start();
    for (const int fault : {SIGSTOP, SIGKILL}) {
        session.summon();
        session.signalWindowManager(fault);
        session.signalBus(fault);
        session.keyboard().press({XK_Escape});
        EXPECT_TRUE(session.waitForDismissal());
        use();
    }
    EXPECT_TRUE(session.waitForRest()) << "the loss keeps it busy";
    EXPECT_EQ(session.output().count('\n'), 1) << session.output().toStdString();
}

TEST_F(FaultTest, ADisplayThatHangsIsWaitedFor) {
    session.start();
    session.summon();
    session.signalDisplay(SIGSTOP);
    EXPECT_TRUE(session.waitForRest()) << "it waits actively";
    session.signalDisplay(SIGCONT);
    session.search("zinc", 1);
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    use();
}

TEST_F(FaultTest, AHotKeyThatAnotherProgramTakesWithTheWholeKeyboardComesBack) {
    session.start();
    {
        const ForeignGrab machine(session.display());
        session.pressDefaultHotKey();
        EXPECT_FALSE(waitUntil([this] { return session.panel().has_value(); },
                               std::chrono::milliseconds(300)));
    }
    use();
}

} // namespace
} // namespace quorvantel
