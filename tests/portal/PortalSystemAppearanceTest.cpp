#include "platform/linux/portal/PortalSystemAppearance.h"

#include "portal/FakeSettingsPortal.h"
#include "support/SessionBus.h"
#include "support/WaitUntil.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::FakeSettingsPortal;
using testing::SessionBus;
using testing::waitUntil;

const QString colorScheme = QStringLiteral("color-scheme");

class DarkFallback : public SystemAppearance {
public:
    bool prefersDark() const override { return isDark; }
    bool reducesTransparency() const override { return false; }

    bool isDark = true;
};

class PortalSystemAppearanceTest : public ::testing::Test {
protected:
    ~PortalSystemAppearanceTest() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("launcher"));
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    }

    QTemporaryDir directory;
    SessionBus sessionBus{directory.path()};
    QDBusConnection launcherBus =
        QDBusConnection::connectToBus(sessionBus.address(), QStringLiteral("launcher"));
    QDBusConnection portalBus =
        QDBusConnection::connectToBus(sessionBus.address(), QStringLiteral("portal"));
    DarkFallback fallback;
};

TEST_F(PortalSystemAppearanceTest, ReadsThePreferenceAndFollowsItsChanges) {
    FakeSettingsPortal portal(portalBus);
    portal.values[colorScheme] = 2;
    const PortalSystemAppearance appearance(launcherBus, fallback);
    int changes = 0;
    QObject::connect(&appearance, &SystemAppearance::changed, [&changes] { ++changes; });
    EXPECT_TRUE(appearance.prefersDark());
    EXPECT_TRUE(waitUntil([&] { return !appearance.prefersDark(); }));
    EXPECT_EQ(changes, 1);

    portal.change(colorScheme, 1);
    EXPECT_TRUE(waitUntil([&] { return appearance.prefersDark(); }));
    portal.change(QStringLiteral("accent-color"), 2);
    portal.change(QStringLiteral("contrast"), 1);
    EXPECT_TRUE(waitUntil([&] { return appearance.reducesTransparency(); }));
    EXPECT_TRUE(appearance.prefersDark());
    EXPECT_EQ(changes, 3);
}

TEST_F(PortalSystemAppearanceTest, WithoutAPreferenceTheFallbackDecides) {
    FakeSettingsPortal portal(portalBus);
    portal.values[colorScheme] = 2;
    const PortalSystemAppearance appearance(launcherBus, fallback);
    ASSERT_TRUE(waitUntil([&] { return !appearance.prefersDark(); }));
    // While there is a preference the fallback's changes do not matter.
    int changes = 0;
    QObject::connect(&appearance, &SystemAppearance::changed, [&changes] { ++changes; });
    Q_EMIT fallback.changed();
    EXPECT_EQ(changes, 0);
    portal.change(colorScheme, 0);
    EXPECT_TRUE(waitUntil([&] { return appearance.prefersDark(); }));
    fallback.isDark = false;
    Q_EMIT fallback.changed();
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(appearance.prefersDark());
}

TEST_F(PortalSystemAppearanceTest, NeedsNoPortal) {
    const PortalSystemAppearance appearance(launcherBus, fallback);
    EXPECT_TRUE(appearance.prefersDark());
    const PortalSystemAppearance withoutBus(QDBusConnection(QStringLiteral("none")), fallback);
    EXPECT_TRUE(withoutBus.prefersDark());
}

} // namespace
} // namespace quorvantel::platform
