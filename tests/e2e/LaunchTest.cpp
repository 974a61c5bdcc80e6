#include "e2e/LauncherSession.h"
#include "support/ClientWindow.h"
#include "support/RecordingScript.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <QDateTime>

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace quorvantel {
namespace {

using ::testing::Each;
using ::testing::SizeIs;
using namespace Qt::StringLiterals;
using namespace ::quorvantel::testing;

const QString zinc = QStringLiteral("zinc");
const QString zealionArc = QStringLiteral("zealion-arc");
const QString frecencyFile = QStringLiteral("frecency.json");
const QString abbreviationsFile = QStringLiteral("abbreviations.json");

// The query "zinc" finds both: the first by its whole name, the second by scattered letters, so far
// behind that one learned pick does not put it in front and two do.
class LaunchTest : public ::testing::Test {
protected:
    LaunchTest() {
        session.addApplication(zinc, QStringLiteral("Zinc"));
        session.addApplication(zealionArc, QStringLiteral("Zealion Arc"));
        // Found until the last letter, so that the list of two tells that the query is complete.
        session.addApplication(QStringLiteral("zinnia"), QStringLiteral("Zinnia"));
    }

    void searchAndLaunchResult(int row) {
        session.summon();
        session.search("zinc", 2);
        for (int step = 0; step < row; ++step) {
            session.keyboard().press({XK_Down});
        }
        session.keyboard().press({XK_Return});
        EXPECT_TRUE(session.waitForDismissal());
    }

    double weight(const QJsonObject& entry, const QString& key) {
        constexpr qint64 referenceDate = 978'307'200; // 2001-01-01, in seconds since 1970
        const double now = static_cast<double>(QDateTime::currentSecsSinceEpoch() - referenceDate);
        EXPECT_NEAR(entry.value(QStringLiteral("lastUpdate")).toDouble(), now, 60);
        EXPECT_THAT(entry, SizeIs(2));
        return entry.value(key).toDouble();
    }

    double launchWeight(const QString& id) {
        const QJsonObject file = session.dataFile(frecencyFile).value_or(QJsonObject());
        return weight(file.value(id).toObject(), QStringLiteral("f"));
    }

    double learnedWeight(const QString& query, const QString& id) {
        const QJsonObject file = session.dataFile(abbreviationsFile).value_or(QJsonObject());
        return weight(file.value(query).toObject().value(id).toObject(), QStringLiteral("weight"));
    }

    LauncherSession session;
};

TEST_F(LaunchTest, ReturnLaunchesTheTopResultAndRecordsIt) {
    session.start();
    searchAndLaunchResult(0);

    EXPECT_THAT(session.waitForRuns(zinc, 1),
                ::testing::ElementsAre(QStringList({zinc, QStringLiteral("two words")})));
    EXPECT_THAT(session.waitForRuns(zealionArc, 0), SizeIs(0));
    EXPECT_DOUBLE_EQ(launchWeight(zinc), 1.0);
    EXPECT_THAT(*session.dataFile(frecencyFile), SizeIs(1));
    EXPECT_FALSE(session.dataFile(abbreviationsFile));
    EXPECT_FALSE(session.output().contains("failed to open")) << session.output().toStdString();
}

TEST_F(LaunchTest, ASessionBusThatHasStoppedHoldsUpNothing) {
    session.start();
    ClientWindow application(session.display(), QRect(0, 400, 200, 100));
    session.summon();
    session.search("zinc", 2);
    session.signalBus(SIGSTOP);
    session.keyboard().press({XK_Return});
    session.keyboard().type("x");
    EXPECT_TRUE(waitUntil([&] { return application.typed() == "x"; }));
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_THAT(session.waitForRuns(zinc, 1), SizeIs(1));
    session.signalBus(SIGCONT);
}

TEST_F(LaunchTest, TwoPicksOfTheSecondResultPutItOnTopEvenAfterARestart) {
    session.start();
    searchAndLaunchResult(1);
    EXPECT_THAT(session.waitForRuns(zealionArc, 1), SizeIs(1));
    EXPECT_DOUBLE_EQ(learnedWeight(zinc, zealionArc), 1.0);

    searchAndLaunchResult(1);
    EXPECT_THAT(session.waitForRuns(zealionArc, 2), SizeIs(2));
    // The first pick has faded for seconds only, with half-lives of days.
    EXPECT_NEAR(learnedWeight(zinc, zealionArc), 2.0, 1e-3);
    EXPECT_LT(learnedWeight(zinc, zealionArc), 2.0);
    EXPECT_NEAR(launchWeight(zealionArc), 2.0, 1e-3);

    searchAndLaunchResult(0);
    EXPECT_THAT(session.waitForRuns(zealionArc, 3), SizeIs(3));
    EXPECT_LT(learnedWeight(zinc, zealionArc), 2.0) << "the top result teaches nothing";

    ASSERT_TRUE(session.terminate());
    session.start();
    searchAndLaunchResult(0);
    EXPECT_THAT(session.waitForRuns(zealionArc, 4), SizeIs(4));
    EXPECT_THAT(session.waitForRuns(zinc, 0), SizeIs(0));
    EXPECT_NEAR(launchWeight(zealionArc), 4.0, 1e-3);
}

TEST_F(LaunchTest, APaneOpensInTheSettingsOfTheDesktop) {
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    for (const char* const entry : {"kcm_clock", "xfce-settings-manager"}) {
        session.addApplication(QLatin1StringView(entry), zinc);
    }
    session.start();
    session.summon();
    session.keyboard().type("control center");
    EXPECT_TRUE(session.waitForPanelHeight(panelHeight(1)));
    session.keyboard().press({XK_Return});
    EXPECT_THAT(session.waitForRuns(QStringLiteral("xfce-settings-manager"), 1), SizeIs(1));
    EXPECT_TRUE(session.waitForDismissal());
    EXPECT_DOUBLE_EQ(launchWeight(QStringLiteral(
                         "x-apple.systempreferences:com.apple.ControlCenter-Settings.extension")),
                     1.0);
}

TEST_F(LaunchTest, AnApplicationInstalledMeanwhileIsFoundAtALaterShowing) {
    session.start();
    session.summon();
    session.search("zinc", 2); // The folders have been read once.
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    session.addApplication(QStringLiteral("zirconic"), QStringLiteral("Zirconic"));

    // They are read again at most every three seconds.
    const auto findsIt = [this] {
        session.summon();
        session.keyboard().type("zirconic");
        const bool found = waitUntil(
            [this] { return session.panel() && session.panel()->height() == panelHeight(1); },
            std::chrono::milliseconds(500));
        session.keyboard().press({XK_Escape});
        EXPECT_TRUE(session.waitForDismissal());
        return found;
    };
    EXPECT_TRUE(waitUntil(findsIt));
}

TEST_F(LaunchTest, AProgramInheritsNothingOfTheLaunchers) {
    const QString program = inHome(u"program"_s);
    writeProgram(program, recordingScript);
    writeFile(inHome(u".local/share/applications/program.desktop"_s),
              "[Desktop Entry]\nType=Application\nName=Program\nExec=" + program.toUtf8() + '\n');
    session.start();
    session.summon();
    session.search("program", 1);
    session.keyboard().press({XK_Return});
    ASSERT_TRUE(waitUntil([] { return QFile::exists(inHome(u"record/done"_s)); }));

    const auto variables = [](const QStringList& list) {
        return QSet<QString>(list.begin(), list.end());
    };
    const QSet<QString> expected = variables(session.launch().environment.toStringList()) -
                                   variables({u"DESKTOP_AUTOSTART_ID=autostarted"_s});
    const QSet<QString> found =
        variables(QString::fromUtf8(readFile(inHome(u"record/environment"_s))).split(QChar::Null));
    // The values are nobody's business but the user's.
    for (const QString& variable : (found | expected) - (found & expected)) {
        const std::string name = variable.section(u'=', 0, 0).toStdString();
        EXPECT_TRUE(name.empty() || name.starts_with("GIO_LAUNCHED_DESKTOP_FILE")) << name;
    }
    EXPECT_EQ(readFile(inHome(u"record/signals"_s)),
              "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
    QStringList files =
        QString::fromUtf8(readFile(inHome(u"record/descriptors"_s))).trimmed().split(u'\n');
    files.removeAll(program);
    EXPECT_THAT(files, Each(u"/dev/null"_s));
}

TEST_F(LaunchTest, AProgramThatHangsHoldsUpNothingAndOutlivesTheLauncher) {
    writeProgram(inHome(u"program"_s), "#!/bin/sh\necho $$ >\"$HOME/pid\"\nexec sleep 60\n");
    writeFile(inHome(u".local/share/applications/program.desktop"_s),
              "[Desktop Entry]\nType=Application\nName=Program\nExec=" +
                  inHome(u"program"_s).toUtf8() + '\n');
    session.start();
    session.summon();
    session.search("program", 1);
    session.keyboard().press({XK_Return});
    ASSERT_TRUE(waitUntil([] { return readFile(inHome(u"pid"_s)).endsWith('\n'); }));
    searchAndLaunchResult(0);
    EXPECT_THAT(session.waitForRuns(zinc, 1), SizeIs(1));
    const auto exit = session.terminate();
    EXPECT_TRUE(exit && !exit->crashed && exit->status == 0);
    EXPECT_EQ(::kill(readFile(inHome(u"pid"_s)).trimmed().toInt(), SIGTERM), 0) << "it has ended";
}

} // namespace
} // namespace quorvantel
