#include "platform/linux/PropertyListDefaults.h"

#include "platform/linux/PropertyList.h"
#include "support/LogLines.h"
#include "support/RandomKills.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;
using Value = UserDefaults::Value;

class PropertyListDefaultsTest : public ::testing::Test {
protected:
    QVariantMap onDisk() const {
        const auto list = PropertyList::parse(readFile(path));
        return list ? list->toVariant().toMap() : QVariantMap();
    }

    const QString path = PropertyListDefaults::standardPath();
    LogLines log;
};

TEST_F(PropertyListDefaultsTest, ReadsNothingAndWritesNothingUntilSomethingIsSet) {
    const PropertyListDefaults defaults;
    EXPECT_EQ(path, inHome(u".config/Quorvantel/defaults.plist"_s));
    EXPECT_FALSE(defaults.value(u"hotKeyCode"_s));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(PropertyListDefaultsTest, KeepsEveryTypeAcrossRuns) {
    const QMap<QString, Value> values{
        {u"zero"_s, std::int64_t{0}},
        {u"largest"_s, std::int64_t{4'294'967'295}},
        {u"smallest"_s, std::numeric_limits<std::int64_t>::min()},
        {u"minus"_s, std::int64_t{-1}},
        {u"real"_s, 0.1},
        {u"yes"_s, true},
        {u"no"_s, false},
        {u"text"_s, u" <ä>&\"'\n 🚀 "_s},
        {u"empty"_s, QString()},
        {u"number as text"_s, u"1"_s},
        {u"data"_s, QByteArray("\0\xFF bplist00", 10)},
        {u"no data"_s, QByteArray()},
        {u"key & <tag> ü"_s, true},
    };
    PropertyListDefaults().setAll(values);
    const PropertyListDefaults reader;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        EXPECT_EQ(reader.value(value.key()), *value) << value.key().toStdString();
    }
}

TEST_F(PropertyListDefaultsTest, ReplacesAValueByOneOfAnotherType) {
    PropertyListDefaults defaults;
    defaults.set(u"key"_s, true);
    defaults.set(u"key"_s, u"text"_s);
    EXPECT_EQ(defaults.value(u"key"_s), Value(u"text"_s));
    EXPECT_EQ(PropertyListDefaults().value(u"key"_s), Value(u"text"_s));
    PropertyListDefaults later;
    later.set(u"key"_s, std::int64_t{7});
    EXPECT_EQ(later.value(u"key"_s), Value(std::int64_t{7}));
    later.set(u"key"_s, UserDefaults::Other());
    EXPECT_EQ(PropertyListDefaults().value(u"key"_s), Value(std::int64_t{7}));
}

TEST_F(PropertyListDefaultsTest, LeavesAloneWhatItDoesNotKnow) {
    writeFile(path, "<plist version=\"1.0\"><dict><key>date</key><date>2020-01-02T03:04:05Z</date>"
                    "<key>list</key><array><integer>-7</integer></array>"
                    "<key>huge</key><integer>18446744073709551615</integer></dict></plist>");
    PropertyListDefaults defaults;
    EXPECT_EQ(defaults.value(u"date"_s), Value(UserDefaults::Other()));
    EXPECT_EQ(defaults.value(u"list"_s), Value(UserDefaults::Other()));
    EXPECT_EQ(defaults.value(u"huge"_s), Value(18446744073709551615.0));

    PropertyListDefaults other;
    other.set(u"fromAnotherProcess"_s, true);
    defaults.set(u"hotKeyCode"_s, std::int64_t{49});
    EXPECT_TRUE(readFile(path).contains("2020-01-02T03:04:05Z"));
    EXPECT_EQ(onDisk().value(u"list"_s), QVariantList{-7LL});
    EXPECT_EQ(onDisk().value(u"huge"_s), ~0ULL);
    EXPECT_EQ(onDisk().value(u"fromAnotherProcess"_s), true);
    EXPECT_EQ(onDisk().value(u"hotKeyCode"_s), 49LL);
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(PropertyListDefaultsTest, SetsADamagedFileAsideBeforeTheFirstWrite) {
    for (const QByteArray damage :
         {"<plist><dict><key>hotKeyCode</key>", "<plist><array/></plist>"}) {
        writeFile(path, damage);
        PropertyListDefaults defaults;
        EXPECT_FALSE(defaults.value(u"hotKeyCode"_s));
        EXPECT_EQ(readFile(path), damage);
        defaults.set(u"preset"_s, u"ink"_s);
        EXPECT_EQ(onDisk(), (QVariantMap{{u"preset"_s, u"ink"_s}}));
    }
    EXPECT_EQ(readFile(path + u".damaged"_s), "<plist><dict><key>hotKeyCode</key>");
    EXPECT_EQ(readFile(path + u".damaged-2"_s), "<plist><array/></plist>");
    EXPECT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines().front().startsWith(u"Quorvantel: "_s));
}

TEST_F(PropertyListDefaultsTest, NeverReplacesWhatItCannotRead) {
    QDir().mkpath(inHome(u".config/Quorvantel"_s));
    makeFifo(path);
    PropertyListDefaults defaults;
    defaults.set(u"preset"_s, u"ink"_s);
    defaults.set(u"accentMigrated"_s, true);
    EXPECT_EQ(defaults.value(u"preset"_s), Value(u"ink"_s));
    EXPECT_FALSE(QFileInfo(path).isFile());
    EXPECT_EQ(log.lines().size(), 2);

    // What could not be written before goes out with the next write that succeeds.
    QFile::remove(path);
    defaults.set(u"preset"_s, u"teal"_s);
    EXPECT_EQ(onDisk(), (QVariantMap{{u"preset"_s, u"teal"_s}, {u"accentMigrated"_s, true}}));
}

TEST_F(PropertyListDefaultsTest, WritesThroughALinkForTheUserAlone) {
    writeFile(inHome(u"dotfiles/defaults.plist"_s), "<plist version=\"1.0\"><dict/></plist>");
    QDir().mkpath(inHome(u".config/Quorvantel"_s));
    QFile::link(inHome(u"dotfiles/defaults.plist"_s), path);
    PropertyListDefaults().set(u"preset"_s, u"ink"_s);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(readFile(inHome(u"dotfiles/defaults.plist"_s)).contains("ink"));
    EXPECT_FALSE(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(PropertyListDefaultsTest, AKillInAWriteMixesNoTwoPairs) {
    std::int64_t known = 0;
    const auto write = [&](const std::function<void()>& saved) {
        PropertyListDefaults defaults;
        for (std::int64_t number = known + 1;; ++number) {
            defaults.setAll({{u"hotKeyCode"_s, number}, {u"hotKeyModifiers"_s, number}});
            saved();
        }
    };
    killAtRandom(write, [&](int saves) {
        const PropertyListDefaults defaults;
        known += saves;
        const std::int64_t code =
            integerValue(defaults.value(u"hotKeyCode"_s).value_or(std::int64_t{0}));
        EXPECT_EQ(defaults.value(u"hotKeyCode"_s), defaults.value(u"hotKeyModifiers"_s));
        EXPECT_TRUE(code == known || code == known + 1) << code << " after " << known;
        known = code;
    });
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join(u'\n').toStdString();
}

} // namespace
} // namespace quorvantel::platform
