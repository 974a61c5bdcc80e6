#include "support/ChildProcess.h"
#include "support/TestFiles.h"
#include "support/TestedCompositors.h"
#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <algorithm>
#include <optional>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace Qt::StringLiterals;

/// The launcher's program in a session of a real compositor, beside an application that has the
/// keyboard.
class WaylandSessionTest : public ::testing::TestWithParam<std::string> {
protected:
    explicit WaylandSessionTest(double outputScale = 1) : scale(outputScale) {
        compositor.enter();
        const QByteArray proof = QFile::encodeName(inHome(u"environment"_s));
        writeFile(inHome(u".local/share/applications/zebra.desktop"_s),
                  "[Desktop Entry]\nType=Application\nName=Zebra\nStartupNotify=true\n"
                  "Exec=sh -c \"env >" +
                      proof + ".part; mv " + proof + ".part " + proof + "\"\n");
    }

    static ChildProcess::Launch launch() {
        ChildProcess::Launch launch{.program = QStringLiteral(QUORVANTEL_PROGRAM),
                                    .outputPath = inHome(u"output"_s)};
        // The session alone decides.
        launch.environment.remove(u"QT_QPA_PLATFORM"_s);
        return launch;
    }

    /// Starts the launcher once more; false when that fails, as while there is none.
    static bool startAgain() {
        ChildProcess again(launch());
        const auto exit = again.waitForExit(patience);
        return exit && !exit->crashed && exit->status == 0;
    }

    /// Starts the launcher in such a way that it shows its panel, over the application.
    static ChildProcess::Launch launchWithPanel() {
        ChildProcess::Launch launch = WaylandSessionTest::launch();
        launch.environment.insert(u"XDG_ACTIVATION_TOKEN"_s, u"starts-with-the-panel"_s);
        return launch;
    }

    /// The panel is brighter than the application and all else.
    bool isPanelAt(const QPoint& place) const {
        return qGray(compositor.screenshot().pixel((QPointF(place) * scale).toPoint())) > 235;
    }

    void expectPanelThatGrowsDownward() {
        const QPoint row(500, 274);
        ASSERT_TRUE(waitUntil([&] { return isPanelAt(field); })) << output().toStdString();
        EXPECT_FALSE(isPanelAt(row));
        EXPECT_TRUE(waitUntil([&] { return !application.isActive(); }));
        input.type("zebra");
        EXPECT_TRUE(waitUntil([&] { return isPanelAt(row); }));
        EXPECT_TRUE(isPanelAt(field));
        EXPECT_FALSE(isPanelAt(field - QPoint(0, 8)));
    }

    static QByteArray output() { return readFile(inHome(u"output"_s)); }

    /// Just below the panel's top edge.
    const QPoint field{500, 166};
    const double scale;
    WaylandCompositor compositor{{.program = QString::fromStdString(GetParam()),
                                  .pixels = QSize(1280, 800) * scale,
                                  .scale = scale}};
    WaylandInput input{compositor};
    WaylandClient application{compositor};
};

TEST_P(WaylandSessionTest, AFurtherStartShowsThePanelAndALostCompositorEndsTheLauncher) {
    ChildProcess launcher(launchWithPanel());
    ASSERT_TRUE(waitUntil([&] { return !application.isActive() || !launcher.isRunning(); }))
        << output().toStdString();
    input.type("zebra");
    input.press({KEY_ENTER});
    const auto environment = [] { return readFile(inHome(u"environment"_s)); };
    EXPECT_TRUE(waitUntil([&] { return !environment().isEmpty(); })) << output().toStdString();
    EXPECT_TRUE(environment().contains("\nXDG_ACTIVATION_TOKEN="));
    for (const char* const token : {"starts-with-the-panel", "not-granted"}) {
        EXPECT_FALSE(environment().contains(token)) << "it is the launcher's own, and good";
    }
    EXPECT_FALSE(environment().contains("\nQT_")) << environment().toStdString();
    EXPECT_TRUE(waitUntil([&] { return application.isActive(); }));
    EXPECT_EQ(application.typed(), "");

    ASSERT_TRUE(startAgain());
    ASSERT_TRUE(waitUntil([&] { return !application.isActive(); }));
    input.press({KEY_ESC});
    EXPECT_TRUE(waitUntil([&] { return application.isActive(); }));
    const qsizetype lines = output().count('\n');
    compositor.signal(SIGKILL);
    const auto exit = launcher.waitForExit(patience);
    ASSERT_TRUE(exit) << "it hangs without a display";
    EXPECT_FALSE(exit->crashed) << exit->status;
    EXPECT_EQ(exit->status, 1);
    EXPECT_TRUE(output().endsWith("Quorvantel: the display server is gone\n"));
    EXPECT_EQ(output().count('\n'), lines + 1) << output().toStdString();
}

TEST_P(WaylandSessionTest, ThePanelFollowsTheMouseThatDragsIt) {
    ChildProcess launcher(launchWithPanel());
    const auto isPanelsLeftEdge = [this](const QPoint& place) {
        const QImage image = compositor.screenshot();
        const QPoint apart(4, 0);
        return qGray(image.pixel(place + apart)) > 235 && qGray(image.pixel(place - apart)) < 230;
    };
    const QPoint edge((compositor.size().width() - 640) / 2, 188);
    ASSERT_TRUE(waitUntil([&] { return isPanelsLeftEdge(edge); })) << output().toStdString();
    const QPoint grip = edge + QPoint(10, 0);
    input.moveTo(grip);
    input.setButtonDown(true);
    QPoint way;
    for (const QPoint& step : {QPoint(60, 130), QPoint(40, 30), QPoint(-20, 25)}) {
        way += step;
        input.moveTo(grip + way);
        EXPECT_TRUE(waitUntil([&] { return isPanelsLeftEdge(edge + way); })) << way.x();
    }
    input.setButtonDown(false);
    EXPECT_TRUE(isPanelsLeftEdge(edge + way));
}

TEST_P(WaylandSessionTest, ThePanelGrowsDownwardAndAClickElsewhereHidesIt) {
    const ChildProcess launcher(launchWithPanel());
    expectPanelThatGrowsDownward();
    input.click({500, 500});
    EXPECT_TRUE(waitUntil([&] { return application.isActive() && !isPanelAt(field); }));
    input.type("x");
    EXPECT_TRUE(waitUntil([&] { return application.typed() == "x"; }));
    // The panel's own window is in between where there are no layers.
    EXPECT_EQ(application.clicks(), GetParam() == "gnome-shell" ? 0 : 1);
}

TEST_P(WaylandSessionTest, TheSettingsGetTheKeyboardFromThePanel) {
    ChildProcess launcher(launchWithPanel());
    ASSERT_TRUE(waitUntil([&] { return !application.isActive(); })) << output().toStdString();
    input.press({KEY_LEFTCTRL, KEY_COMMA});
    const auto quits = [&] {
        input.press({KEY_LEFTCTRL, KEY_Q});
        return !launcher.isRunning();
    };
    EXPECT_TRUE(waitUntil(quits));
    EXPECT_EQ(launcher.waitForExit(patience)->status, 0);
    EXPECT_TRUE(waitUntil([&] { return application.isActive(); }));
}

class WaylandSessionAtScaleTwoTest : public WaylandSessionTest {
protected:
    WaylandSessionAtScaleTwoTest() : WaylandSessionTest(2) {}
};

TEST_P(WaylandSessionAtScaleTwoTest, ThePanelIsWhereItBelongs) {
    const ChildProcess launcher(launchWithPanel());
    expectPanelThatGrowsDownward();
}

std::string nameOf(const ::testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(On, WaylandSessionTest, ::testing::ValuesIn(testedCompositors()), nameOf);
INSTANTIATE_TEST_SUITE_P(On, WaylandSessionAtScaleTwoTest, ::testing::ValuesIn(testedCompositors()),
                         nameOf);

} // namespace
} // namespace quorvantel
