#include "shell/AppSettings.h"

#include "support/MemoryDefaults.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using testing::MemoryDefaults;

const QString codeKey = u"hotKeyCode"_s;
const QString modifiersKey = u"hotKeyModifiers"_s;

TEST(AppSettingsTest, ReadsOnlyAWholeBindingAndWritesNothing) {
    MemoryDefaults defaults;
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), HotKeyBinding::defaultBinding());
    defaults.values[codeKey] = std::int64_t{40};
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), HotKeyBinding::defaultBinding());
    defaults.values[modifiersKey] = u"4096"_s;
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), HotKeyBinding::defaultBinding());
    defaults.values[modifiersKey] = 4096.5;
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{40, 4096}));
    defaults.values[modifiersKey] = std::int64_t{4096};
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{40, 4096}));
    EXPECT_EQ(defaults.writes, QStringList());
}

TEST(AppSettingsTest, TakesTheLowBitsOfSignedNumbersAndDiesOfLargerOnes) {
    MemoryDefaults defaults;
    defaults.values[codeKey] = std::int64_t{-1};
    defaults.values[modifiersKey] = std::int64_t{2147483647};
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{0xFFFFFFFF, 0x7FFFFFFF}));
    defaults.values[modifiersKey] = std::int64_t{2147483648};
    EXPECT_DEATH(AppSettings{defaults}, "hotKeyModifiers");
    // Half a binding is none, whatever it says.
    defaults.values.remove(codeKey);
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), HotKeyBinding::defaultBinding());
}

TEST(AppSettingsTest, StoresBeforeItCallsBackAndOnlyARealChange) {
    MemoryDefaults defaults;
    AppSettings settings(defaults);
    QStringList events;
    QObject::connect(&settings, &AppSettings::hotKeyBindingChanged,
                     [&] { events << u"observed"_s; });
    settings.onHotKeyChange = [&](const HotKeyBinding& binding) {
        events << defaults.writes << binding.displayText();
    };
    settings.setHotKeyBinding(HotKeyBinding::defaultBinding());
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(defaults.writes, QStringList());
    settings.setHotKeyBinding({49, 0x1000});
    EXPECT_EQ(events, (QStringList{u"observed"_s, codeKey, modifiersKey, u"⌃Space"_s}));
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{49, 0x1000}));
}

} // namespace
} // namespace quorvantel
