#include "catalogue/SettingsPaneCatalogue.h"

#include "catalogue/FakeBundleReader.h"
#include "catalogue/FakeSettingsPanels.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

const LaunchTarget& pane(const std::vector<LaunchTarget>& targets, const QString& name) {
    const auto found =
        std::find_if(targets.begin(), targets.end(),
                     [&](const LaunchTarget& target) { return target.displayName() == name; });
    EXPECT_NE(found, targets.end()) << name.toStdString();
    return *found;
}

TEST(SettingsPaneCatalogueTest, ListsEveryPaneWithItsSymbolWhereThereAreNoExtensions) {
    const std::vector<LaunchTarget> targets =
        settingsPaneTargets(FakeBundleReader(), u"/no"_s, FakeSettingsPanels());
    ASSERT_EQ(targets.size(), 38U);
    EXPECT_EQ(targets.front().displayName(), u"Wi-Fi"_s);
    EXPECT_EQ(targets.back().displayName(), u"Transfer or Reset"_s);
    EXPECT_EQ(QSet<LaunchTarget>(targets.begin(), targets.end()).size(), 38);
    for (const LaunchTarget& target : targets) {
        const auto& url = std::get<LaunchTarget::SettingsPane>(target.kind()).url;
        EXPECT_EQ(url.toString(), target.id());
        EXPECT_EQ(url.scheme(), u"x-apple.systempreferences"_s);
        EXPECT_FALSE(url.path().isEmpty());
        EXPECT_EQ(target.icon().source, platform::Image::Source::Symbol);
        EXPECT_EQ(target.icon().description, target.displayName());
        EXPECT_TRUE(target.displayName().startsWith(target.searchKeys().front()));
        EXPECT_EQ(QSet<QString>(target.searchKeys().begin(), target.searchKeys().end()).size(),
                  target.searchKeys().size());
        EXPECT_FALSE(target.searchKeys().contains(QString()));
    }
}

TEST(SettingsPaneCatalogueTest, KeepsTheTextsThatUsersSearchFor) {
    const std::vector<LaunchTarget> targets =
        settingsPaneTargets(FakeBundleReader(), u"/no"_s, FakeSettingsPanels());
    EXPECT_EQ(pane(targets, u"Network"_s).searchKeys().back(), u"Wi-Fi"_s);
    EXPECT_EQ(pane(targets, u"Sharing"_s).searchKeys().size(), 9);
    EXPECT_EQ(pane(targets, u"Sharing"_s).searchKeys().back(), u"AirPlay Receiver"_s);
    EXPECT_EQ(pane(targets, u"Privacy & Security"_s).id(),
              u"x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension"_s);
    EXPECT_EQ(pane(targets, u"Game Center"_s).icon().name,
              pane(targets, u"Game Controllers"_s).icon().name);
}

TEST(SettingsPaneCatalogueTest, TakesTheIconOfAnInstalledExtensionOrPanel) {
    FakeBundleReader bundles;
    const auto add = [&](const QString& name, const QVariant& identifier) {
        bundles.add({u"/ext/"_s + name, {{u"CFBundleIdentifier"_s, identifier}}, {}});
    };
    add(u"Sound.appex"_s, u"com.apple.Sound-Settings.extension"_s);
    add(u"Focus.bundle"_s, u"com.apple.Focus-Settings.extension"_s);
    add(u"Broken.appex"_s, 5LL);
    bundles.addUnreadable(u"/ext/Siri.appex"_s);

    FakeSettingsPanels panels;
    for (const QString& name : {u"Sound"_s, u"Battery"_s}) {
        panels.icons.insert(
            u"x-apple.systempreferences:com.apple.%1-Settings.extension"_s.arg(name),
            platform::Image::iconTheme(u"panel"_s));
    }
    const std::vector<LaunchTarget> targets = settingsPaneTargets(bundles, u"/ext"_s, panels);
    EXPECT_EQ(targets.size(), 38U);
    EXPECT_EQ(pane(targets, u"Sound"_s).icon().name, u"/ext/Sound.appex"_s);
    EXPECT_EQ(pane(targets, u"Battery"_s).icon().name, u"panel"_s);
    EXPECT_EQ(pane(targets, u"Battery"_s).icon().substitute, u"battery.100"_s);
    EXPECT_EQ(pane(targets, u"Focus"_s).icon(), platform::Image::symbol(u"moon"_s, u"Focus"_s));
    EXPECT_EQ(pane(targets, u"Siri"_s).icon(), platform::Image::symbol(u"waveform"_s, u"Siri"_s));
}

} // namespace
} // namespace quorvantel
