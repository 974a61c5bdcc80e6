#include "platform/linux/session/DisplayChoice.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

constexpr auto wayland = DisplayProtocol::Wayland;
constexpr auto x11 = DisplayProtocol::X11;
using Protocols = std::vector<DisplayProtocol>;

TEST(DisplayChoiceTest, PrefersWaylandUnlessTheUserSaysOtherwise) {
    const struct {
        SessionVariables variables;
        Protocols candidates;
    } cases[] = {
        {{"", "", ":0", ""}, {x11}},
        {{"", "wayland-0", ":0", "x11"}, {wayland, x11}},
        {{"", "", ":0", "wayland"}, {wayland, x11}},
        {{"", "", "", "tty"}, {}},
        {{"xcb", "wayland-0", ":0", "wayland"}, {x11}},
        {{"xcb:opengl=none;wayland-egl", "", ":0", ""}, {x11, wayland}},
        {{"wayland", "", ":0", "x11"}, {wayland}},
        {{"offscreen", "", ":0", ""}, {x11}},
    };
    for (const auto& [variables, candidates] : cases) {
        EXPECT_EQ(displayCandidates(variables), candidates)
            << variables.toolkitPlatform.toStdString() << variables.waylandDisplay.toStdString();
    }
}

TEST(DisplayChoiceTest, SaysWhereNobodyAnswers) {
    const SessionVariables wrong{"", "wayland-9", ":99", ""};
    EXPECT_EQ(displayProblem(wrong, {wayland, x11}).toStdString(),
              "no display server answers at WAYLAND_DISPLAY=wayland-9 or DISPLAY=:99");
    EXPECT_EQ(displayProblem({"xcb", "", "", ""}, {x11}).toStdString(),
              "no display server answers at DISPLAY (not set)");
    EXPECT_NE(displayProblem({}, {}).toStdString(), "");
}

} // namespace
} // namespace quorvantel::platform
