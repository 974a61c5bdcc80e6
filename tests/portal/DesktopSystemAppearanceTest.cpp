#include "platform/linux/session/DesktopSystemAppearance.h"

#include "platform/linux/x11/X11EventDispatcher.h"
#include "platform/linux/x11/X11Settings.h"
#include "portal/FakeSettingsPortal.h"
#include "support/ChildProcess.h"
#include "support/SessionBus.h"
#include "support/TestFiles.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QStyle>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using testing::ChildProcess;
using testing::FakeSettingsPortal;
using testing::SessionBus;
using testing::waitUntil;
using namespace Qt::StringLiterals;

constexpr auto appearanceGroup = "org.freedesktop.appearance";
const QString colorScheme = u"color-scheme"_s;

bool isAnimated() {
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

class DarkFallback : public SystemAppearance {
public:
    bool prefersDark() const override { return isDark; }
    bool reducesTransparency() const override { return false; }
    bool increasesContrast() const override { return false; }

    bool isDark = true;
};

class DesktopSystemAppearanceTest : public ::testing::Test {
protected:
    DesktopSystemAppearanceTest() {
        QObject::connect(&appearance, &SystemAppearance::changed, [this] { ++changes; });
    }
    ~DesktopSystemAppearanceTest() override {
        QDBusConnection::disconnectFromBus(u"launcher"_s);
        QDBusConnection::disconnectFromBus(u"portal"_s);
    }

    QTemporaryDir directory;
    SessionBus sessionBus{directory.path()};
    QDBusConnection portalBus = QDBusConnection::connectToBus(sessionBus.address(), u"portal"_s);
    FakeSettingsPortal portal{portalBus, {{QLatin1String(appearanceGroup), {{colorScheme, 2U}}}}};
    DarkFallback fallback;
    PortalSettings portalSettings{
        QDBusConnection::connectToBus(sessionBus.address(), u"launcher"_s), preferenceNamespaces()};
    X11EventDispatcher events;
    X11Settings manager{X11Display::current().value(), events};
    DesktopSystemAppearance appearance{portalSettings, &manager, fallback};
    int changes = 0;
};

TEST_F(DesktopSystemAppearanceTest, FollowsThePortal) {
    EXPECT_TRUE(appearance.prefersDark());
    EXPECT_TRUE(waitUntil([&] { return !appearance.prefersDark(); }));
    portal.change(appearanceGroup, "color-scheme", 1U);
    EXPECT_TRUE(waitUntil([&] { return appearance.prefersDark(); }));
    portal.change(appearanceGroup, "accent-color", 2U);
    portal.change(appearanceGroup, "reduced-motion", 1U);
    portal.change("org.elsewhere", "contrast", 1U);
    portal.change(appearanceGroup, "contrast",
                  QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1U)))));
    EXPECT_TRUE(waitUntil([&] { return appearance.reducesTransparency(); }));
    EXPECT_TRUE(appearance.prefersDark());
    EXPECT_TRUE(appearance.increasesContrast());
    EXPECT_FALSE(isAnimated());
    EXPECT_EQ(changes, 3);
}

TEST_F(DesktopSystemAppearanceTest, WithoutAPreferenceTheFallbackDecides) {
    ASSERT_TRUE(waitUntil([&] { return !appearance.prefersDark(); }));
    // While there is a preference the fallback's changes do not matter.
    Q_EMIT fallback.changed();
    EXPECT_EQ(changes, 1);
    portal.change(appearanceGroup, "color-scheme", 0U);
    EXPECT_TRUE(waitUntil([&] { return appearance.prefersDark(); }));
    fallback.isDark = false;
    Q_EMIT fallback.changed();
    EXPECT_EQ(changes, 3);
    EXPECT_FALSE(appearance.prefersDark());
    PortalSettings withoutBus(QDBusConnection(u"none"_s), preferenceNamespaces());
    EXPECT_FALSE(DesktopSystemAppearance(withoutBus, nullptr, fallback).prefersDark());
}

TEST_F(DesktopSystemAppearanceTest, FollowsTheSettingsManagerAndTellsTheToolkit) {
    ASSERT_TRUE(waitUntil([&] { return !appearance.prefersDark(); }));
    const QFont ownFont = QApplication::font();
    const int ownDoubleClickTime = QApplication::doubleClickInterval();
    const QString file = directory.filePath(u"xsettingsd.conf"_s);
    testing::writeFile(file, "Gtk/FontName \"DejaVu Serif 14\"\nGtk/EnableAnimations 0\n"
                             "Net/ThemeName \"HighContrast\"\n"
                             "Net/DoubleClickTime 250\nNet/CursorBlink 0\n");
    {
        ChildProcess settingsManager({.program = u"xsettingsd"_s, .arguments = {u"-c"_s, file}});
        EXPECT_TRUE(waitUntil([&] { return !isAnimated(); }));
        EXPECT_TRUE(appearance.increasesContrast());
        EXPECT_EQ(QApplication::font().family(), u"DejaVu Serif"_s);
        EXPECT_EQ(QApplication::font().pointSizeF(), 14);
        EXPECT_EQ(QApplication::doubleClickInterval(), 250);
        EXPECT_EQ(QApplication::cursorFlashTime(), 0);
        EXPECT_TRUE(
            X11Settings(X11Display::current().value(), events).values().contains("Gtk/FontName"));

        // A font is the toolkit's affair, and its change no change of the answers.
        testing::writeFile(file,
                           "Gtk/FontName \"DejaVu Sans 9\"\nNet/ThemeName \"HighContrast\"\n");
        settingsManager.signal(SIGHUP);
        EXPECT_TRUE(waitUntil([] { return QApplication::font().pointSizeF() == 9; }));
        EXPECT_EQ(changes, 2);
    }
    EXPECT_TRUE(waitUntil([&] { return !appearance.increasesContrast(); }));
    EXPECT_TRUE(isAnimated());
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(QApplication::font(), ownFont);
    EXPECT_EQ(QApplication::doubleClickInterval(), ownDoubleClickTime);
}

} // namespace
} // namespace quorvantel::platform
