#include "e2e/LauncherSession.h"
#include "support/ChildProcess.h"
#include "support/CompositingManager.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <optional>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace Qt::StringLiterals;

class BackdropTest : public ::testing::Test {
protected:
    /// The windows of the shown panel from the bottom up by their widths.
    std::vector<int> widths() const {
        std::vector<int> result;
        for (const xcb_window_t window : session.desktop().overrideRedirectWindows()) {
            result.push_back(session.desktop().geometry(window).value_or(QRect()).width());
        }
        return result;
    }

    bool showsShadow() const {
        // It has to be under the panel.
        return waitUntil([this] {
            const std::vector<int> found = widths();
            return found.size() == 2 && found.front() > LauncherSession::panelWidth &&
                   found.back() == LauncherSession::panelWidth;
        });
    }

    bool showsNoShadow() const {
        return waitUntil([this] { return widths() == std::vector{LauncherSession::panelWidth}; });
    }

    LauncherSession session;
};

TEST_F(BackdropTest, TheShownPanelFollowsTheCompositingManager) {
    session.start();
    session.summon();
    EXPECT_TRUE(showsNoShadow());

    std::optional<CompositingManager> manager(session.display());
    EXPECT_TRUE(showsShadow());
    manager.reset();
    EXPECT_TRUE(showsNoShadow());

    // What changes while the panel is hidden counts when it is shown.
    session.keyboard().press({XK_Escape});
    EXPECT_TRUE(session.waitForDismissal());
    manager.emplace(session.display());
    session.summon();
    EXPECT_TRUE(showsShadow());
}

TEST_F(BackdropTest, AShadowOfTheDesktopFollowsTheRoundedCorners) {
    ChildProcess::Launch launch{
        .program = u"picom"_s,
        .arguments = {u"--backend"_s, u"xrender"_s, u"--config"_s, u"/dev/null"_s, u"-c"_s}};
    launch.environment.insert(u"DISPLAY"_s, QString::fromLatin1(session.display()));
    const ChildProcess picom(launch);
    session.start();
    session.summon();
    const auto lightness = [this](QPoint point) {
        return qGray(session.desktop().screenshot(QRect(point, QSize(1, 1))).pixel(0, 0));
    };
    const QPoint corner = session.panel()->bottomLeft();
    EXPECT_TRUE(waitUntil([&] { return lightness(corner) < lightness({0, 0}) - 8; }));
}

} // namespace
} // namespace quorvantel
