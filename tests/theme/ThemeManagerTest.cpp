#include "theme/ThemeManager.h"

#include "support/MemoryDefaults.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using testing::MemoryDefaults;
using Appearance = ThemeManager::Appearance;
using Value = platform::UserDefaults::Value;

TEST(ThemeManagerTest, AFirstStartStoresOnlyThatPresetsWereReset) {
    MemoryDefaults defaults;
    const ThemeManager manager(defaults);
    EXPECT_EQ(manager.appearance(), Appearance::Auto);
    EXPECT_EQ(manager.preset(), ThemePreset::Graphite);
    EXPECT_EQ(manager.accentHex(), u"#14B8A6"_s);
    EXPECT_EQ(defaults.values.keys(), (QStringList{u"preset"_s, u"themesRetired_v1"_s}));
    EXPECT_EQ(defaults.values[u"preset"_s], Value(u"graphite"_s));
}

TEST(ThemeManagerTest, ResetsAStoredPresetOnceAndHonoursItAfterwards) {
    MemoryDefaults defaults;
    defaults.values[u"preset"_s] = u"teal"_s;
    EXPECT_EQ(ThemeManager(defaults).preset(), ThemePreset::Graphite);
    for (const Value& yes : {Value(true), Value(std::int64_t{2}), Value(0.5), Value(u"YES"_s),
                             Value(u"true"_s), Value(u"1"_s)}) {
        defaults.values[u"themesRetired_v1"_s] = yes;
        defaults.values[u"preset"_s] = u"glass"_s;
        EXPECT_EQ(ThemeManager(defaults).preset(), ThemePreset::Glass);
    }
    for (const Value& no : {Value(false), Value(std::int64_t{0}), Value(0.0), Value(u"no"_s),
                            Value(QByteArray("1"))}) {
        defaults.values[u"themesRetired_v1"_s] = no;
        defaults.values[u"preset"_s] = u"glass"_s;
        EXPECT_EQ(ThemeManager(defaults).preset(), ThemePreset::Graphite);
    }
}

TEST(ThemeManagerTest, IgnoresWhatItDoesNotKnowAndKeepsAnyAccentText) {
    MemoryDefaults defaults;
    defaults.values[u"appearance"_s] = u"Dark"_s;
    defaults.values[u"preset"_s] = std::int64_t{1};
    defaults.values[u"themesRetired_v1"_s] = true;
    defaults.values[u"accentColorHex"_s] = u"xyz"_s;
    const ThemeManager manager(defaults);
    EXPECT_EQ(manager.appearance(), Appearance::Auto);
    EXPECT_EQ(manager.preset(), ThemePreset::Graphite);
    EXPECT_EQ(manager.accentHex(), u"xyz"_s);
}

TEST(ThemeManagerTest, StoresEveryAssignmentAndNotifiesOnlyOfChanges) {
    MemoryDefaults defaults;
    ThemeManager manager(defaults);
    int changes = 0;
    QObject::connect(&manager, &ThemeManager::appearanceChanged, [&changes] { ++changes; });
    manager.setAppearance(Appearance::Auto);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(defaults.values[u"appearance"_s], Value(u"auto"_s));
    manager.setAppearance(Appearance::Dark);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(ThemeManager(defaults).appearance(), Appearance::Dark);
}

class AccentMigrationTest : public ::testing::Test {
protected:
    AccentMigrationTest() {
        defaults.values[u"accentColor"_s] = QByteArray("archive");
        defaults.values[u"themesRetired_v1"_s] = true;
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
    EXPECT_EQ(migrated({{0.5, 0.25, 1}}), u"#8040FF"_s);
    EXPECT_EQ(defaults.values[u"accentColorHex"_s], Value(u"#8040FF"_s));
    EXPECT_EQ(defaults.values[u"accentMigrated"_s], Value(true));
    EXPECT_EQ(defaults.values[u"accentColor"_s], Value(QByteArray("archive")));

    EXPECT_EQ(migrated({{0, 0, 0}}), u"#8040FF"_s);
    defaults.values.remove(u"accentColorHex"_s);
    EXPECT_EQ(migrated({{0, 0, 0}}), u"#14B8A6"_s);
    EXPECT_EQ(decodings, 0);
}

TEST_F(AccentMigrationTest, ComponentsAreRoundedAndNotLimited) {
    EXPECT_EQ(migrated({{2, 0.0019, 1e6 / 255}}), u"#1FE00F4240"_s);
}

TEST_F(AccentMigrationTest, WithoutAColourItIsTriedAgain) {
    EXPECT_EQ(migrated(std::nullopt), u"#14B8A6"_s);
    EXPECT_FALSE(defaults.values.contains(u"accentMigrated"_s));
    EXPECT_FALSE(defaults.values.contains(u"accentColorHex"_s));
    EXPECT_EQ(migrated({{1, 1, 1}}), u"#FFFFFF"_s);

    defaults = {};
    defaults.values[u"accentColor"_s] = u"a text"_s;
    EXPECT_EQ(migrated({{1, 1, 1}}), u"#14B8A6"_s);
    EXPECT_EQ(decodings, 0);
}

TEST_F(AccentMigrationTest, AComponentBeyondAllNumbersEndsTheProgram) {
    EXPECT_EQ(migrated({{0, -0x1p63 / 255, 0}}), u"#000000"_s);
    defaults.values.remove(u"accentColorHex"_s);
    defaults.values.remove(u"accentMigrated"_s);
    for (const double component : {std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN(), 0x1p63 / 255, -1e17}) {
        EXPECT_DEATH(migrated({{0, component, 0}}), "accent colour is out of range") << component;
    }
}

} // namespace
} // namespace quorvantel
