#include "platform/linux/PropertyListBundleReader.h"

#include "platform/linux/PropertyList.h"
#include "platform/linux/PropertyListGuard.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <sys/stat.h>

#include <cstdlib>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

QByteArray xmlList(const QByteArray& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\">" + content +
           "</plist>";
}

QByteArray bigEndian(quint64 value, int size) {
    QByteArray bytes;
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8) {
        bytes.append(static_cast<char>(value >> shift & 0xFF));
    }
    return bytes;
}

/// A binary property list of these objects. References take four bytes each.
QByteArray binaryList(const QByteArrayList& objects, quint64 root = 0) {
    QByteArray content = "bplist00";
    QByteArray offsets;
    for (const QByteArray& object : objects) {
        offsets += bigEndian(static_cast<quint64>(content.size()), 4);
        content += object;
    }
    const auto table = static_cast<quint64>(content.size());
    return content + offsets + QByteArray(6, '\0') + bigEndian(4, 1) + bigEndian(4, 1) +
           bigEndian(static_cast<quint64>(objects.size()), 8) + bigEndian(root, 8) +
           bigEndian(table, 8);
}

/// Lists that hold one another's successor `references` times, down to a boolean.
QByteArray nestedBinaryList(int depth, int references) {
    QByteArrayList objects;
    for (int level = 1; level <= depth; ++level) {
        QByteArray object(1, static_cast<char>(0xA0 + references));
        for (int i = 0; i < references; ++i) {
            object += bigEndian(static_cast<quint64>(level), 4);
        }
        objects.append(object);
    }
    return binaryList(objects << QByteArray("\x09"));
}

/// A list after its table of two offsets, with what follows its marker: the reference to a boolean.
/// The trailer begins with what looks like one.
QByteArray listAtTheEnd(const QByteArray& reference) {
    return "bplist00\x0B\x0A\x09\xA1" + reference + bigEndian(1, 1) + bigEndian(0x0101, 7) +
           bigEndian(2, 8) + bigEndian(0, 8) + bigEndian(8, 8);
}

QByteArray toBinary(const QByteArray& xml) {
    plist_t list = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &list);
    char* bytes = nullptr;
    std::uint32_t size = 0;
    plist_to_bin(list, &bytes, &size);
    plist_free(list);
    const QByteArray binary(bytes, size);
    std::free(bytes);
    return binary;
}

class PropertyListBundleReaderTest : public ::testing::Test {
protected:
    std::optional<QVariantMap> read(const QByteArray& propertyList) const {
        writeFile(bundle + u"/Contents/Info.plist"_s, propertyList);
        return reader.infoDictionary(bundle);
    }

    const QString bundle = inHome(u"Some App.app"_s);
    PropertyListBundleReader reader;
};

TEST_F(PropertyListBundleReaderTest, KeepsTheTypesOfValuesInBothEncodings) {
    const QByteArray xml = xmlList(
        "<dict><key>text</key><string>Ä &lt; \xF0\x9F\x9A\x80</string><key>yes</key><true/>"
        "<key>no</key><false/><key>minus</key><integer>-3</integer>"
        "<key>large</key><integer>18446744073709551615</integer><key>real</key><real>0.1</real>"
        "<key>data</key><data>AAEC</data><key>date</key><date>2020-01-01T00:00:00Z</date>"
        "<key>list</key><array><integer>1</integer><dict/></array></dict>");
    const QVariantMap expected{
        {u"text"_s, u"Ä < 🚀"_s},
        {u"yes"_s, true},
        {u"no"_s, false},
        {u"minus"_s, -3LL},
        {u"large"_s, ~0ULL},
        {u"real"_s, 0.1},
        {u"data"_s, QByteArray("\0\1\2", 3)},
        {u"date"_s, QVariant()},
        {u"list"_s, QVariantList{1LL, QVariantMap()}},
    };
    const auto types = [](const QVariantMap& map) {
        QStringList names;
        for (const QVariant& value : map) {
            names.append(QString::fromLatin1(value.typeName()));
        }
        return names;
    };
    for (const QByteArray& encoded : {xml, toBinary(xml)}) {
        const auto info = read(encoded);
        ASSERT_TRUE(info);
        EXPECT_EQ(*info, expected);
        EXPECT_EQ(types(*info), types(expected));
    }
}

TEST_F(PropertyListBundleReaderTest, FindsNoDictionaryInDamagedLists) {
    const QByteArray xml = xmlList("<dict><key>a</key><string>b</string></dict>");
    EXPECT_TRUE(read(xml));
    EXPECT_FALSE(read(xml.chopped(20)));
    EXPECT_FALSE(read(toBinary(xml).chopped(20)));
    EXPECT_FALSE(read(xmlList("<array/>")));
    for (const QByteArray other : {"hello", "{\"a\": \"b\"}", "{ a = b; }", "[[[1]]]"}) {
        EXPECT_FALSE(PropertyList::parse(other)) << other.constData();
    }
    EXPECT_FALSE(read(xml + QByteArray(1024 * 1024, ' ')));
}

TEST_F(PropertyListBundleReaderTest, SurvivesListsThatAreNestedBeyondReason) {
    const int levels = 60'000;
    EXPECT_FALSE(read(xmlList("<dict><key>a</key>" + QByteArray("<array>").repeated(levels) +
                              QByteArray("</array>").repeated(levels) + "</dict>")));
    EXPECT_FALSE(read(QByteArray("<plist>") + QByteArray("<array>").repeated(100'000)));
    EXPECT_FALSE(PropertyList::parse(nestedBinaryList(100'000, 1)));
    EXPECT_TRUE(PropertyList::parse(nestedBinaryList(10, 2)));
    EXPECT_FALSE(PropertyList::parse(nestedBinaryList(100, 2)));
    // The most that is allowed, and one more.
    const QByteArray mebibyte = "\x4F\x12" + bigEndian(1'048'576, 4) + QByteArray(1'048'576, 'x');
    for (const auto& [content, count, limit] : {std::tuple(mebibyte, 16, 16),
                                                {mebibyte, 17, 16},
                                                {"\x09", 19'999, 19'999},
                                                {"\x09", 20'000, 19'999}}) {
        const QByteArray list = "\xAF\x11" + bigEndian(static_cast<quint64>(count), 2) +
                                bigEndian(1, 4).repeated(count);
        EXPECT_EQ(isHarmlessBinaryList(binaryList({list, content})), count <= limit) << count;
    }
    EXPECT_TRUE(isHarmlessXmlList(QByteArray("<dict>").repeated(5'000)));
    EXPECT_FALSE(isHarmlessXmlList(QByteArray("<dict>").repeated(5'001)));
    QVariant value = PropertyList::parse(nestedBinaryList(200, 1))->toVariant();
    int depth = 0;
    for (; value.typeId() == QMetaType::QVariantList; ++depth) {
        value = value.toList().value(0);
    }
    EXPECT_EQ(depth, 100) << "what is deeper is left out";
}

TEST_F(PropertyListBundleReaderTest, SurvivesBinaryListsThatLie) {
    EXPECT_FALSE(PropertyList::parse(binaryList({QByteArray("\xA1") + bigEndian(0, 4)})));
    const QByteArray cycle = QByteArray("\xD1") + bigEndian(1, 4) + bigEndian(0, 4);
    EXPECT_FALSE(read(binaryList({cycle, "\x51k"})));
    const QByteArray pair = QByteArray("\xD1") + bigEndian(1, 4) + bigEndian(1, 4);
    EXPECT_TRUE(read(binaryList({pair, QByteArray("\x52kk")})));
    EXPECT_TRUE(read(binaryList({cycle, "\x51k", "\xD0"}, 2))) << "the cycle is not looked at";
    EXPECT_FALSE(read(binaryList({pair, QByteArray("\x52k\0", 3)})));
    EXPECT_FALSE(read(binaryList({pair, QByteArray("\x61\0\0", 3)})));
    EXPECT_TRUE(read(binaryList({pair, QByteArray("\x62\0k\0k", 5)})));
    EXPECT_FALSE(read(binaryList({pair, QByteArray("\x63\0k\0\0\0k", 7), "\x53xyz"})));
    const QByteArray hugeCount = QByteArray("\xAF\x13") + QByteArray(8, '\xFF');
    EXPECT_FALSE(PropertyList::parse(binaryList({hugeCount})));
    EXPECT_TRUE(isHarmlessBinaryList(listAtTheEnd(bigEndian(1, 1))));
    EXPECT_FALSE(isHarmlessBinaryList(listAtTheEnd({})));
    const QByteArray longText = QByteArray("\x5F\x12") + bigEndian(500'000, 4);
    QByteArray many = QByteArray("\xAF\x11") + bigEndian(10'000, 2);
    many += bigEndian(1, 4).repeated(10'000);
    EXPECT_FALSE(PropertyList::parse(binaryList({many, longText + QByteArray(500'000, 'x')})));
}

TEST_F(PropertyListBundleReaderTest, ReadsRegularFilesOnly) {
    const QString list = bundle + u"/Contents/Info.plist"_s;
    EXPECT_FALSE(reader.infoDictionary(bundle));
    QDir().mkpath(bundle + u"/Contents"_s);
    makeFifo(list);
    EXPECT_FALSE(reader.infoDictionary(bundle));
    QFile::remove(list);
    QFile::link(list, list);
    EXPECT_FALSE(reader.infoDictionary(bundle));
    QFile::remove(list);
    writeFile(inHome(u"Linked.plist"_s), xmlList("<dict/>"));
    QFile::link(inHome(u"Linked.plist"_s), list);
    EXPECT_TRUE(reader.infoDictionary(bundle));
}

TEST_F(PropertyListBundleReaderTest, ListsChildrenWithoutTheirFolders) {
    writeFile(inHome(u"Apps/Ä.app/Contents/Info.plist"_s), {});
    writeFile(inHome(u"Apps/.hidden"_s), {});
    QFile::link(u"nowhere"_s, inHome(u"Apps/Link.app"_s));
    makeFifo(inHome(u"Apps/fifo"_s));
    const QByteArray notText = QFile::encodeName(inHome(u"Apps/"_s)) + "\xFF\xFE.app";
    ASSERT_EQ(mkdir(notText.constData(), S_IRWXU), 0);
    QStringList names = reader.childNames(inHome(u"Apps"_s));
    names.sort();
    EXPECT_EQ(names, (QStringList{u".hidden"_s, u"Link.app"_s, u"fifo"_s, u"Ä.app"_s}));
    EXPECT_EQ(reader.childNames(inHome(u"None"_s)), QStringList());
}

TEST_F(PropertyListBundleReaderTest, NamesTheBundleAndItsIcon) {
    const QVariantMap info{{u"CFBundleDisplayName"_s, u"Some Name"_s},
                           {u"CFBundleIconFile"_s, u"AppIcon"_s}};
    EXPECT_EQ(reader.localizedName(bundle, info), u"Some Name"_s);
    EXPECT_EQ(reader.localizedName(bundle, {{u"CFBundleDisplayName"_s, 1LL}}), QString());
    EXPECT_EQ(reader.displayName(bundle, info), u"Some App.app"_s);

    EXPECT_TRUE(reader.icon(bundle, info).isNull());
    const QString icon = bundle + u"/Contents/Resources/AppIcon.png"_s;
    writeFile(icon, "png");
    EXPECT_EQ(reader.icon(bundle, info), Image::file(icon));
    EXPECT_EQ(reader.icon(bundle, {{u"CFBundleIconFile"_s, u"AppIcon.png"_s}}), Image::file(icon));
    EXPECT_TRUE(reader.icon(bundle, {{u"CFBundleIconFile"_s, u"../Info.plist"_s}}).isNull());
    EXPECT_TRUE(reader.icon(bundle, {}).isNull());
}

} // namespace
} // namespace quorvantel::platform
