#include "platform/linux/x11/X11Keyboard.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "support/WaitUntil.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::waitUntil;

constexpr std::uint32_t keyQ = 12;

void run(const QString& program, const QStringList& arguments) {
    ASSERT_EQ(QProcess::execute(program, arguments), 0);
}

TEST(X11KeyboardTest, FollowsTheServerAndTellsOfRealChangesOnly) {
    X11EventDispatcher events;
    X11Keyboard keyboard(X11Display::current().value(), events);
    int changes = 0;
    QObject::connect(&keyboard, &X11Keyboard::changed, &keyboard, [&] { ++changes; });
    const auto firstLetter = [&] {
        const Keymap& keymap = keyboard.keymap();
        return keymap.symbol(keymap.keyAt(keyQ).value(), 0, false);
    };
    EXPECT_EQ(firstLetter(), XKB_KEY_q);
    run(QStringLiteral("setxkbmap"), {QStringLiteral("us")});
    run(QStringLiteral("setxkbmap"), {QStringLiteral("fr")});
    EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
    EXPECT_EQ(firstLetter(), XKB_KEY_a);
    run(QStringLiteral("setxkbmap"), {QStringLiteral("us")});
    EXPECT_TRUE(waitUntil([&] { return changes == 2; }));
    EXPECT_EQ(firstLetter(), XKB_KEY_q);
    QTest::qWait(100);
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace quorvantel::platform
