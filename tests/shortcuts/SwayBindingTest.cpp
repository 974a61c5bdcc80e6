#include "platform/GlobalHotKeys.h"
#include "platform/linux/shortcuts/UserBinding.h"
#include "support/WaitUntil.h"
#include "support/WaylandCompositor.h"
#include "support/WaylandInput.h"

#include <QFile>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace quorvantel::platform {
namespace {

using namespace HotKeyModifier;

TEST(SwayBindingTest, TheLineForTheConfigurationBindsTheKey) {
    const testing::WaylandCompositor sway({});
    testing::WaylandInput input(sway);
    const testing::UnprivilegedFolder folder;
    const QString trace = folder.filePath(QStringLiteral("started"));
    const auto works = [&](std::uint32_t keyCode, std::uint32_t modifiers,
                           std::initializer_list<int> keys) {
        const auto accelerator = Accelerator::at(keyCode, modifiers, Keymap::us()).value();
        sway.command(
            userBinding({QStringLiteral("sway")}, accelerator, QStringLiteral("touch ") + trace)
                .configuration);
        input.press(keys);
        return testing::waitUntil([&] { return QFile::remove(trace); });
    };
    EXPECT_TRUE(works(49, command | option, {KEY_LEFTMETA, KEY_LEFTALT, KEY_SPACE}));
    EXPECT_TRUE(works(18, control | shift, {KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_1}));
}

} // namespace
} // namespace quorvantel::platform
