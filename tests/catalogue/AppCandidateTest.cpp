#include "catalogue/AppCandidate.h"

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

const QString launcher = u"org.example.Launcher"_s;

AppCandidate editor() {
    return {QUrl::fromLocalFile(u"/Applications/Editor.app"_s),
            u"org.example.Editor"_s,
            false,
            u"Texteditor"_s,
            u"Editor"_s,
            u"TextEdit"_s,
            {},
            {}};
}

TEST(AppCandidateTest, SearchesByEveryNameOnceInOrderOfPreference) {
    const auto keys = [](const QString& name, const QString& fileName) {
        AppCandidate candidate = editor();
        candidate.name = name;
        candidate.fileName = fileName;
        return makeAppTarget(candidate, launcher)->searchKeys();
    };
    EXPECT_EQ(keys(u"Editor"_s, u"TextEdit"_s),
              (QStringList{u"Texteditor"_s, u"Editor"_s, u"TextEdit"_s}));
    EXPECT_EQ(keys(u"Editor"_s, u"Texteditor"_s), (QStringList{u"Texteditor"_s, u"Editor"_s}));
    EXPECT_EQ(keys({}, u"texteditor"_s), (QStringList{u"Texteditor"_s, u"texteditor"_s}));
}

TEST(AppCandidateTest, SearchesByFurtherWordsThatEarnNothingForABeginning) {
    const auto keys = [](const QStringList& secondaryNames) {
        AppCandidate candidate = editor();
        candidate.secondaryNames = secondaryNames;
        return makeAppTarget(candidate, launcher)->searchKeys().mid(3);
    };
    EXPECT_EQ(keys({u"Write e-mail Plain/Text  write"_s, u"text_editor.bin"_s}),
              (QStringList{u"·write ·e-·mail ·plain/·text"_s, u"·text_·editor.·bin"_s}));
    EXPECT_EQ(keys({u"a b"_s, {}, u" "_s, u"A b"_s, u"textEDIT"_s}), QStringList{u"·a ·b"_s});
    QString words;
    for (int number = 100; number < 1000; ++number) {
        words += u' ' + QString::number(number);
    }
    EXPECT_EQ(keys({words}).value(0).size(), 249);
    EXPECT_TRUE(keys({QString(1000, u'a')}).isEmpty());
}

TEST(AppCandidateTest, TakesOneBundleExtensionOffTheDisplayName) {
    AppCandidate candidate = editor();
    candidate.displayName = u"Editor.app.app"_s;
    EXPECT_EQ(makeAppTarget(candidate, launcher)->displayName(), u"Editor.app"_s);
    candidate.displayName = u"Editor.APP"_s;
    EXPECT_EQ(makeAppTarget(candidate, launcher)->displayName(), u"Editor.APP"_s);
    candidate.displayName = u".app"_s;
    EXPECT_FALSE(makeAppTarget(candidate, launcher));
}

TEST(AppCandidateTest, ReadsTheBackgroundFlagInAllItsTypes) {
    const QVariantList on = {true, 1LL, -1LL, 1ULL << 63, 0.5, u"YES"_s, u"True"_s, u"1"_s};
    for (const QVariant& value : on) {
        EXPECT_TRUE(isBackgroundOnly(value)) << value.toString().toStdString();
    }
    const QVariantList off = {false,  0LL,    0.0,        u"no"_s,         u" yes"_s,
                              u"2"_s, u"y"_s, QVariant(), QByteArray("1"), QVariantList{true}};
    for (const QVariant& value : off) {
        EXPECT_FALSE(isBackgroundOnly(value)) << value.toString().toStdString();
    }
}

} // namespace
} // namespace quorvantel
