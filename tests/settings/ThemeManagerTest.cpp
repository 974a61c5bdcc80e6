#include "settings/ThemeManager.h"

#include "support/MemoryDefaults.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using testing::MemoryDefaults;
using Appearance = ThemeManager::Appearance;

TEST(ThemeManagerTest, AFirstStartStoresOnlyThatPresetsWereReset) {
    MemoryDefaults defaults;
    const ThemeManager manager(defaults);
    EXPECT_EQ(manager.appearance(), Appearance::Auto);
    EXPECT_EQ(manager.preset(), ThemePreset::Graphite);
    EXPECT_EQ(manager.accentHex(), QStringLiteral("#14B8A6"));
    EXPECT_EQ(defaults.values.keys(),
              (QStringList{QStringLiteral("preset"), QStringLiteral("themesRetired_v1")}));
    EXPECT_EQ(defaults.values[QStringLiteral("preset")],
              platform::UserDefaults::Value(QStringLiteral("graphite")));
}

TEST(ThemeManagerTest, ResetsAStoredPresetOnceAndHonoursItAfterwards) {
    MemoryDefaults defaults;
    defaults.values[QStringLiteral("preset")] = QStringLiteral("teal");
    EXPECT_EQ(ThemeManager(defaults).preset(), ThemePreset::Graphite);
    defaults.values[QStringLiteral("preset")] = QStringLiteral("glass");
    EXPECT_EQ(ThemeManager(defaults).preset(), ThemePreset::Glass);
}

TEST(ThemeManagerTest, IgnoresWhatItDoesNotKnowAndKeepsAnyAccentText) {
    MemoryDefaults defaults;
    defaults.values[QStringLiteral("appearance")] = QStringLiteral("Dark");
    defaults.values[QStringLiteral("preset")] = std::int64_t{1};
    defaults.values[QStringLiteral("themesRetired_v1")] = true;
    defaults.values[QStringLiteral("accentColorHex")] = QStringLiteral("xyz");
    const ThemeManager manager(defaults);
    EXPECT_EQ(manager.appearance(), Appearance::Auto);
    EXPECT_EQ(manager.preset(), ThemePreset::Graphite);
    EXPECT_EQ(manager.accentHex(), QStringLiteral("xyz"));
}

TEST(ThemeManagerTest, StoresEveryAssignmentAndNotifiesOnlyOfChanges) {
    MemoryDefaults defaults;
    ThemeManager manager(defaults);
    int changes = 0;
    QObject::connect(&manager, &ThemeManager::appearanceChanged, [&changes] { ++changes; });
    manager.setAppearance(Appearance::Auto);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(defaults.values[QStringLiteral("appearance")],
              platform::UserDefaults::Value(QStringLiteral("auto")));
    manager.setAppearance(Appearance::Dark);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(ThemeManager(defaults).appearance(), Appearance::Dark);
}

} // namespace
} // namespace quorvantel
