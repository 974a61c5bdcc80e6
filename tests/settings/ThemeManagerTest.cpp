#include "settings/ThemeManager.h"

#include "support/MemoryDefaults.h"

#include <gtest/gtest.h>

#include <limits>

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

class AccentMigrationTest : public ::testing::Test {
protected:
    AccentMigrationTest() {
        defaults.values[QStringLiteral("accentColor")] = QByteArray("archive");
        defaults.values[QStringLiteral("themesRetired_v1")] = true;
    }

    QString migrated(std::optional<platform::ColorComponents> color) {
        decodings = 0;
        return ThemeManager(defaults,
                            [this, color](const QByteArray& archive) {
                                EXPECT_EQ(archive, "archive");
                                ++decodings;
                                return color;
                            })
            .accentHex();
    }

    MemoryDefaults defaults;
    int decodings = 0;
};

TEST_F(AccentMigrationTest, AnArchivedColourBecomesTheAccentOnce) {
    EXPECT_EQ(migrated({{0.5, 0.25, 1}}), QStringLiteral("#8040FF"));
    EXPECT_EQ(defaults.values[QStringLiteral("accentColorHex")],
              platform::UserDefaults::Value(QStringLiteral("#8040FF")));
    EXPECT_EQ(defaults.values[QStringLiteral("accentMigrated")],
              platform::UserDefaults::Value(true));
    EXPECT_EQ(defaults.values[QStringLiteral("accentColor")],
              platform::UserDefaults::Value(QByteArray("archive")));

    EXPECT_EQ(migrated({{0, 0, 0}}), QStringLiteral("#8040FF"));
    defaults.values.remove(QStringLiteral("accentColorHex"));
    EXPECT_EQ(migrated({{0, 0, 0}}), QStringLiteral("#14B8A6"));
    EXPECT_EQ(decodings, 0);
}

TEST_F(AccentMigrationTest, ComponentsAreRoundedAndNotLimited) {
    EXPECT_EQ(migrated({{2, 0.0019, 1e6 / 255}}), QStringLiteral("#1FE00F4240"));
}

TEST_F(AccentMigrationTest, WithoutAColourItIsTriedAgain) {
    EXPECT_EQ(migrated(std::nullopt), QStringLiteral("#14B8A6"));
    EXPECT_FALSE(defaults.values.contains(QStringLiteral("accentMigrated")));
    EXPECT_FALSE(defaults.values.contains(QStringLiteral("accentColorHex")));
    EXPECT_EQ(migrated({{1, 1, 1}}), QStringLiteral("#FFFFFF"));

    defaults = {};
    defaults.values[QStringLiteral("accentColor")] = QStringLiteral("a text");
    EXPECT_EQ(migrated({{1, 1, 1}}), QStringLiteral("#14B8A6"));
    EXPECT_EQ(decodings, 0);
}

TEST_F(AccentMigrationTest, AComponentBeyondAllNumbersEndsTheProgram) {
    for (const double component : {std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN(), 1e17, -1e17}) {
        EXPECT_DEATH(migrated({{0, component, 0}}), "accent colour is out of range") << component;
    }
}

} // namespace
} // namespace quorvantel
