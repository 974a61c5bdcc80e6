#include "platform/ColorArchive.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <memory>

namespace quorvantel::platform {
namespace {

/// A keyed archive in XML with the given objects after "$null" and the given root.
QByteArray archive(const QString& objects, const QString& root = QStringLiteral("1"),
                   const QString& archiver = QStringLiteral("NSKeyedArchiver")) {
    return QStringLiteral(
               R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>
<key>$version</key><integer>100000</integer><key>$archiver</key><string>%3</string>
<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>%2</integer></dict></dict>
<key>$objects</key><array><string>$null</string>%1</array></dict></plist>)")
        .arg(objects, root, archiver)
        .toUtf8();
}

QString data(const char* key, const QByteArray& bytes) {
    return QStringLiteral("<key>%1</key><data>%2</data>")
        .arg(QLatin1String(key), QString::fromLatin1(bytes.toBase64()));
}

QString number(const char* key, const QString& value) {
    return QStringLiteral("<key>%1</key><integer>%2</integer>").arg(QLatin1String(key), value);
}

QString uid(const char* key, const QString& index) {
    return QStringLiteral("<key>%1</key><dict><key>CF$UID</key><integer>%2</integer></dict>")
        .arg(QLatin1String(key), index);
}

QString classObject(const char* name) {
    return QStringLiteral("<dict><key>$classname</key><string>%1</string></dict>")
        .arg(QLatin1String(name));
}

/// The objects of a colour, whose class follows it.
QString color(const QString& fields, const char* className = "NSColor") {
    return QStringLiteral("<dict>%1%2</dict>%3")
        .arg(fields, uid("$class", QStringLiteral("2")), classObject(className));
}

QString plain(int colorSpace, const char* key, const QByteArray& components) {
    return color(number("NSColorSpace", QString::number(colorSpace)) + data(key, components));
}

/// An sRGB colour, whose calibrated components differ.
QString standardRgb(const QString& space = number("NSID", QStringLiteral("7"))) {
    return color(number("NSColorSpace", QStringLiteral("1")) + data("NSRGB", "0.4 0.2 0.9") +
                 data("NSComponents", "0.5 0.25 1 1") +
                 uid("NSCustomColorSpace", QStringLiteral("3"))) +
           QStringLiteral("<dict>%1%2</dict>").arg(space, uid("$class", QStringLiteral("4"))) +
           classObject("NSColorSpace");
}

QByteArray toBinary(const QByteArray& xml) {
    plist_t list = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &list);
    // The binary form has references of a type of its own.
    plist_t const top = plist_dict_get_item(list, "$top");
    plist_dict_set_item(top, "root", plist_new_uid(1));
    plist_t const object = plist_array_get_item(plist_dict_get_item(list, "$objects"), 1);
    plist_dict_set_item(object, "$class", plist_new_uid(2));
    char* bytes = nullptr;
    std::uint32_t size = 0;
    plist_to_bin(list, &bytes, &size);
    QByteArray binary(bytes, static_cast<qsizetype>(size));
    std::free(bytes);
    plist_free(list);
    return binary;
}

TEST(ColorArchiveTest, DecodesTheColourSpacesOfPractice) {
    using Components = ColorComponents;
    EXPECT_EQ(decodeColorArchive(archive(plain(1, "NSRGB", "0.5 0.25 1"))),
              (Components{0.5, 0.25, 1}));
    EXPECT_EQ(decodeColorArchive(archive(plain(2, "NSRGB", QByteArray("0 1 0.125 0.5\0", 14)))),
              (Components{0, 1, 0.125}));
    EXPECT_EQ(decodeColorArchive(archive(plain(3, "NSWhite", "0.75 0.5"))),
              (Components{0.75, 0.75, 0.75}));
    EXPECT_EQ(decodeColorArchive(archive(plain(4, "NSWhite", QByteArray("1\0", 2)))),
              (Components{1, 1, 1}));
    EXPECT_EQ(decodeColorArchive(archive(standardRgb())), (Components{0.5, 0.25, 1}));
    EXPECT_EQ(decodeColorArchive(archive(standardRgb(number("NSID", QStringLiteral("11"))))),
              (Components{0.4, 0.2, 0.9}));
    EXPECT_EQ(decodeColorArchive(toBinary(archive(plain(1, "NSRGB", "1.5 -0.25 1e2")))),
              (Components{1.5, -0.25, 100}));
}

TEST(ColorArchiveTest, AnythingElseIsNoColour) {
    const QString rgb = plain(1, "NSRGB", "0.5 0.25 1");
    const QString huge = QStringLiteral("18446744073709551615");
    const QByteArray none[] = {
        "",
        "bplist00",
        "not a property list",
        archive(rgb, huge),
        archive(rgb, QStringLiteral("3")),
        archive(rgb, QStringLiteral("0")),
        archive(rgb, QStringLiteral("2")),
        archive(rgb, QStringLiteral("-1")),
        archive(rgb, QStringLiteral("1"), QStringLiteral("NSArchiver")),
        archive({}),
        archive(color(data("NSRGB", "0.5 0.25 1"))),
        archive(color(number("NSColorSpace", huge) + data("NSRGB", "0.5 0.25 1"))),
        archive(color(number("NSColorSpace", QStringLiteral("1")) + data("NSRGB", "0.5 0.25 1"),
                      "NSImage")),
        archive(plain(6, "NSRGB", "0.5 0.25 1")),
        archive(plain(5, "NSCMYK", "0 0 0 1")),
        archive(plain(1, "NSRGB", "")),
        archive(plain(1, "NSRGB", "0.5 0.25")),
        archive(plain(1, "NSRGB", "0.5,0.25,1")),
        archive(plain(1, "NSRGB", QByteArray("0.5 ").repeated(10'000))),
        archive(plain(3, "NSWhite", "white")),
        archive(color(number("NSColorSpace", QStringLiteral("1")) +
                      QStringLiteral("<key>NSRGB</key><string>0.5 0.25 1</string>"))),
    };
    for (const QByteArray& bytes : none) {
        EXPECT_EQ(decodeColorArchive(bytes), std::nullopt) << bytes.left(1000).constData();
    }
}

TEST(ColorArchiveTest, CircularReferencesEnd) {
    // A colour that is its own class, and one that is its own colour space.
    const QString self = QStringLiteral("<dict>%1%2%3</dict>")
                             .arg(number("NSColorSpace", QStringLiteral("1")),
                                  data("NSRGB", "1 1 1"), uid("$class", QStringLiteral("1")));
    EXPECT_EQ(decodeColorArchive(archive(self)), std::nullopt);
    const QString ownSpace =
        color(number("NSColorSpace", QStringLiteral("1")) + data("NSRGB", "1 1 1") +
              uid("NSCustomColorSpace", QStringLiteral("1")));
    EXPECT_EQ(decodeColorArchive(archive(ownSpace)), (ColorComponents{1, 1, 1}));
}

TEST(ColorArchiveTest, SurvivesAnyDamageToABinaryArchive) {
    const QByteArray whole = toBinary(archive(plain(1, "NSRGB", "0.5 0.25 1")));
    ASSERT_TRUE(decodeColorArchive(whole));
    for (qsizetype at = 0; at < whole.size(); ++at) {
        EXPECT_EQ(decodeColorArchive(whole.first(at)), std::nullopt) << at;
        for (const int bits : {0x01, 0x80, 0xFF}) {
            QByteArray damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ bits);
            // Any answer will do, as long as there is one.
            decodeColorArchive(damaged);
        }
    }
}

} // namespace
} // namespace quorvantel::platform
