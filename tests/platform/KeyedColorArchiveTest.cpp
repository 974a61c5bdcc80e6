#include "platform/linux/KeyedColorArchive.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

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

/// An object whose fields are given as "key=number", "key:data" and "key@object".
QString object(const QByteArrayList& fields) {
    QString xml;
    for (const QByteArray& field : fields) {
        const QString text = QString::fromLatin1(field);
        const qsizetype mark = text.indexOf(QRegularExpression(u"[=:@]"_s));
        const QString value = text.mid(mark + 1);
        const QString data = QString::fromLatin1(value.toLatin1().toBase64());
        xml += u"<key>%1</key>"_s.arg(text.left(mark)) +
               (text[mark] == u':' ? u"<data>%1</data>"_s.arg(data)
                : text[mark] == u'='
                    ? u"<integer>%1</integer>"_s.arg(value)
                    : u"<dict><key>CF$UID</key><integer>%1</integer></dict>"_s.arg(value));
    }
    return u"<dict>%1</dict>"_s.arg(xml);
}

QString classNamed(const QString& name) {
    return u"<dict><key>$classname</key><string>%1</string></dict>"_s.arg(name);
}

/// The objects of a colour, whose class follows it.
QString color(const QByteArrayList& fields, const QString& className = u"NSColor"_s) {
    return object(fields + QByteArrayList{"$class@2"}) + classNamed(className);
}

/// An archive of a plain colour.
QByteArray plain(const QByteArray& colorSpace, const QByteArray& components) {
    return archive(color({"NSColorSpace=" + colorSpace, components}));
}

/// An sRGB colour, whose calibrated components differ, in the binary form, which has references of
/// a type of its own.
const QByteArray binary = QByteArray::fromBase64(
    "YnBsaXN0MDDUAQIDBAUGGx5ZJGFyY2hpdmVyWCRvYmplY3RzVCR0b3BYJHZlcnNpb25fEA9OU0tleWVkQXJjaG"
    "l2ZXKlBwgTFhpVJG51bGzVCQoLDA0ODxARElYkY2xhc3NcTlNDb2xvclNwYWNlXE5TQ29tcG9uZW50c18QEk5T"
    "Q3VzdG9tQ29sb3JTcGFjZVVOU1JHQoACEAFMMC41IDAuMjUgMSAxgANMMC40IDAuMiAwLjkA0RQVWiRjbGFzc2"
    "5hbWVXTlNDb2xvctIJFxgZVE5TSUSABBAH0RQK0RwdVHJvb3SAARIAAYagCBEbJCkyREpQW2JvfJGXmZuoqre6"
    "xc3S19nb3uHm6AAAAAAAAAEBAAAAAAAAAB8AAAAAAAAAAAAAAAAAAADt");

TEST(ColorArchiveTest, DecodesTheColourSpacesOfPractice) {
    const QByteArrayList standard{"NSColorSpace=1", "NSRGB:0.4 0.2 0.9",
                                  "NSComponents:0.5 0.25 1 1", "NSCustomColorSpace@3"};
    const std::pair<QByteArray, ColorComponents> cases[] = {
        {plain("1", "NSRGB:0.5 0.25 1"), {0.5, 0.25, 1}},
        {plain("2", QByteArray("NSRGB:0 1 0.125 0.5\0", 20)), {0, 1, 0.125}},
        {plain("3", "NSWhite:0.75 0.5"), {0.75, 0.75, 0.75}},
        {plain("4", QByteArray("NSWhite:1\0", 10)), {1, 1, 1}},
        {plain("1", "NSRGB:1.5 -0.25 1e2"), {1.5, -0.25, 100}},
        {binary, {0.5, 0.25, 1}},
        // Of another space than sRGB.
        {archive(color(standard) + object({"NSID=11", "$class@4"}) + classNamed(u"NSColorSpace"_s)),
         {0.4, 0.2, 0.9}},
        // A colour that is its own colour space.
        {archive(color({"NSColorSpace=1", "NSRGB:1 1 1", "NSCustomColorSpace@1"})), {1, 1, 1}},
    };
    for (const auto& [bytes, components] : cases) {
        EXPECT_EQ(KeyedColorArchive().decode(bytes), components) << bytes.constData();
    }
}

TEST(ColorArchiveTest, AnythingElseIsNoColour) {
    const QString rgb = color({"NSColorSpace=1", "NSRGB:0.5 0.25 1"});
    const QByteArray none[] = {
        "",
        "bplist00",
        binary.chopped(20),
        archive(rgb, u"18446744073709551615"_s),
        archive(rgb, u"3"_s),
        archive(rgb, u"0"_s),
        archive(rgb, u"2"_s),
        archive(rgb, u"-1"_s),
        archive(rgb, u"1"_s, u"NSArchiver"_s),
        archive({}),
        // A colour that is its own class.
        archive(object({"NSColorSpace=1", "NSRGB:1 1 1", "$class@1"})),
        archive(color({"NSRGB:0.5 0.25 1"})),
        archive(color({"NSColorSpace=1", "NSRGB:0.5 0.25 1"}, u"NSImage"_s)),
        plain("18446744073709551615", "NSRGB:0.5 0.25 1"),
        plain("6", "NSRGB:0.5 0.25 1"),
        plain("5", "NSCMYK:0 0 0 1"),
        plain("1", "NSRGB:"),
        plain("1", "NSRGB:0.5 0.25"),
        plain("1", "NSRGB:0.5,0.25,1"),
        plain("1", "NSRGB:" + QByteArray("0.5 ").repeated(10'000)),
        plain("3", "NSWhite:white"),
        plain("1", "NSRGB=1"),
    };
    for (const QByteArray& bytes : none) {
        EXPECT_EQ(KeyedColorArchive().decode(bytes), std::nullopt) << bytes.left(1000).constData();
    }
}

} // namespace
} // namespace quorvantel::platform
