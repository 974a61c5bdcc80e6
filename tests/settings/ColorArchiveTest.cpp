#include "platform/ColorArchive.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <memory>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

/// A keyed archive in XML with the given objects after "$null" and the given root.
QByteArray archive(const QString& objects, const QString& root = u"1"_s,
                   const QString& archiver = u"NSKeyedArchiver"_s) {
    return QStringLiteral(
               R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>
<key>$version</key><integer>100000</integer><key>$archiver</key><string>%3</string>
<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>%2</integer></dict></dict>
<key>$objects</key><array><string>$null</string>%1</array></dict></plist>)")
        .arg(objects, root, archiver)
        .toUtf8();
}

QString data(const char* key, const QByteArray& bytes) {
    return u"<key>%1</key><data>%2</data>"_s.arg(QLatin1String(key),
                                                 QString::fromLatin1(bytes.toBase64()));
}

QString number(const char* key, const QString& value) {
    return u"<key>%1</key><integer>%2</integer>"_s.arg(QLatin1String(key), value);
}

QString uid(const char* key, const QString& index) {
    return u"<key>%1</key><dict><key>CF$UID</key><integer>%2</integer></dict>"_s.arg(
        QLatin1String(key), index);
}

QString classObject(const char* name) {
    return u"<dict><key>$classname</key><string>%1</string></dict>"_s.arg(QLatin1String(name));
}

/// The objects of a colour, whose class follows it.
QString color(const QString& fields, const char* className = "NSColor") {
    return u"<dict>%1%2</dict>%3"_s.arg(fields, uid("$class", u"2"_s), classObject(className));
}

QString plain(int colorSpace, const char* key, const QByteArray& components) {
    return color(number("NSColorSpace", QString::number(colorSpace)) + data(key, components));
}

/// An sRGB colour, whose calibrated components differ.
QString standardRgb(const QString& space = number("NSID", u"7"_s)) {
    return color(number("NSColorSpace", u"1"_s) + data("NSRGB", "0.4 0.2 0.9") +
                 data("NSComponents", "0.5 0.25 1 1") + uid("NSCustomColorSpace", u"3"_s)) +
           u"<dict>%1%2</dict>"_s.arg(space, uid("$class", u"4"_s)) + classObject("NSColorSpace");
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
    const std::pair<QByteArray, ColorComponents> cases[] = {
        {archive(plain(1, "NSRGB", "0.5 0.25 1")), {0.5, 0.25, 1}},
        {archive(plain(2, "NSRGB", QByteArray("0 1 0.125 0.5\0", 14))), {0, 1, 0.125}},
        {archive(plain(3, "NSWhite", "0.75 0.5")), {0.75, 0.75, 0.75}},
        {archive(plain(4, "NSWhite", QByteArray("1\0", 2))), {1, 1, 1}},
        {archive(standardRgb()), {0.5, 0.25, 1}},
        {archive(standardRgb(number("NSID", u"11"_s))), {0.4, 0.2, 0.9}},
        {toBinary(archive(plain(1, "NSRGB", "1.5 -0.25 1e2"))), {1.5, -0.25, 100}},
        // A colour that is its own colour space.
        {archive(color(number("NSColorSpace", u"1"_s) + data("NSRGB", "1 1 1") +
                       uid("NSCustomColorSpace", u"1"_s))),
         {1, 1, 1}},
    };
    for (const auto& [bytes, components] : cases) {
        EXPECT_EQ(decodeColorArchive(bytes), components) << bytes.constData();
    }
}

TEST(ColorArchiveTest, AnythingElseIsNoColour) {
    const QString rgb = plain(1, "NSRGB", "0.5 0.25 1");
    const QString huge = u"18446744073709551615"_s;
    const QByteArray none[] = {
        "",
        "bplist00",
        toBinary(archive(rgb)).chopped(20),
        archive(rgb, huge),
        archive(rgb, u"3"_s),
        archive(rgb, u"0"_s),
        archive(rgb, u"2"_s),
        archive(rgb, u"-1"_s),
        archive(rgb, u"1"_s, u"NSArchiver"_s),
        archive({}),
        // A colour that is its own class.
        archive(u"<dict>%1%2%3</dict>"_s.arg(number("NSColorSpace", u"1"_s), data("NSRGB", "1 1 1"),
                                             uid("$class", u"1"_s))),
        archive(color(data("NSRGB", "0.5 0.25 1"))),
        archive(color(number("NSColorSpace", huge) + data("NSRGB", "0.5 0.25 1"))),
        archive(color(number("NSColorSpace", u"1"_s) + data("NSRGB", "0.5 0.25 1"), "NSImage")),
        archive(plain(6, "NSRGB", "0.5 0.25 1")),
        archive(plain(5, "NSCMYK", "0 0 0 1")),
        archive(plain(1, "NSRGB", "")),
        archive(plain(1, "NSRGB", "0.5 0.25")),
        archive(plain(1, "NSRGB", "0.5,0.25,1")),
        archive(plain(1, "NSRGB", QByteArray("0.5 ").repeated(10'000))),
        archive(plain(3, "NSWhite", "white")),
        archive(color(number("NSColorSpace", u"1"_s) +
                      u"<key>NSRGB</key><string>0.5 0.25 1</string>"_s)),
    };
    for (const QByteArray& bytes : none) {
        EXPECT_EQ(decodeColorArchive(bytes), std::nullopt) << bytes.left(1000).constData();
    }
}

} // namespace
} // namespace quorvantel::platform
