#include "e2e/ScreenReader.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"
#include "support/WaylandClient.h"
#include "support/WaylandInput.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace Qt::StringLiterals;

class WaylandAccessibilityTest : public ::testing::TestWithParam<const char*> {};

TEST_P(WaylandAccessibilityTest, TheFieldAndTheSelectionAreHeardFromALayerSurface) {
    for (const QString& name : {u"Zinc1"_s, u"Zinc2"_s}) {
        writeFile(inHome(u".local/share/applications/"_s + name + u".desktop"_s),
                  "[Desktop Entry]\nType=Application\nExec=true\nName=" + name.toUtf8());
    }
    const WaylandCompositor compositor({.program = QString::fromLatin1(GetParam())});
    compositor.enter();
    const ScreenReader reader(compositor.busAddress());
    WaylandInput input(compositor);
    const WaylandClient application(compositor);
    ChildProcess::Launch launch{.program = QStringLiteral(QUORVANTEL_PROGRAM),
                                .environment = QProcessEnvironment::systemEnvironment()};
    launch.environment.insert(u"XDG_ACTIVATION_TOKEN"_s, u"starts-with-the-panel"_s);
    const ChildProcess launcher(launch);
    const auto find = [&reader](const char* role) {
        return reader.find(u"Quorvantel"_s, QString::fromLatin1(role));
    };
    const auto hears = [&reader](const char* event) {
        return waitUntil([&] { return reader.heard().contains(QString::fromLatin1(event)); });
    };
    ASSERT_TRUE(waitUntil([&] { return find("text") && find("text")->has("focused"); }));
    EXPECT_EQ(find("text")->name(), u"Search apps and settings…"_s);
    EXPECT_TRUE(find("dialog")->has("active"));
    input.type("zinc");
    EXPECT_TRUE(hears("focused: list item Zinc1"));
    input.press({KEY_DOWN});
    EXPECT_TRUE(hears("focused: list item Zinc2"));
    EXPECT_TRUE(find("text")->has("focused"));
    input.press({KEY_ESC});
    EXPECT_TRUE(waitUntil([&] { return !find("text"); }));
}

INSTANTIATE_TEST_SUITE_P(On, WaylandAccessibilityTest, ::testing::Values("sway", "kwin_wayland"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace quorvantel
