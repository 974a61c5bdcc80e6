#include "preferences/AppSettings.h"

#include "support/MemoryDefaults.h"

#include <gtest/gtest.h>

#include <cmath>

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
    defaults.values[modifiersKey] = std::int64_t{4096};
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{40, 4096}));
    // Half a binding is none, whatever it says.
    defaults.values = {{modifiersKey, std::int64_t{1} << 40}};
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), HotKeyBinding::defaultBinding());
    EXPECT_EQ(defaults.writes, QStringList());
}

TEST(AppSettingsTest, TakesNumbersOfEveryTypeAndDiesOfThoseBeyond32Bits) {
    using Value = platform::UserDefaults::Value;
    MemoryDefaults defaults;
    defaults.values[modifiersKey] = std::int64_t{4096};
    const std::pair<Value, std::uint32_t> inside[] = {
        {u"49"_s, 49},
        {u" -3 keys"_s, 0xFFFFFFFD},
        {u"+7.9"_s, 7},
        {u"F2"_s, 0},
        {true, 1},
        {false, 0},
        {49.9, 49},
        {-1.9, 0xFFFFFFFF},
        {2147483647.0, 0x7FFFFFFF},
        {-2147483648.9, 1U << 31},
        {std::int64_t{-1}, 0xFFFFFFFF},
        {std::int64_t{2147483647}, 0x7FFFFFFF},
        {QByteArray("49"), 0},
        {platform::UserDefaults::Other(), 0},
    };
    for (const auto& [value, keyCode] : inside) {
        defaults.values[codeKey] = value;
        EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{keyCode, 4096}));
    }
    for (const Value& value :
         {Value(std::int64_t{2147483648}), Value(-2147483649.0), Value(18446744073709551615.0),
          Value(std::nan("")), Value(u"18446744073709551615"_s)}) {
        defaults.values[codeKey] = value;
        EXPECT_DEATH(AppSettings{defaults}, "hotKeyCode");
    }
}

TEST(AppSettingsTest, StoresARealChangeInOneWriteBeforeItCallsBack) {
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
    EXPECT_EQ(events, (QStringList{u"observed"_s, codeKey + u'+' + modifiersKey, u"⌃Space"_s}));
    EXPECT_EQ(AppSettings(defaults).hotKeyBinding(), (HotKeyBinding{49, 0x1000}));
}

} // namespace
} // namespace quorvantel
