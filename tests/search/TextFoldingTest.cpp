#include "text/TextFolding.h"

#include "search/CharacterCase.h"

#include <QString>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

TEST(TextFoldingTest, DropsCaseAndMarks) {
    const struct {
        QStringView text;
        std::u32string_view folded;
    } cases[] = {
        {u"Café", U"cafe"},
        {u"CAFE\u0301", U"cafe"},
        {u"Straße", U"strasse"},
        {u"STRAẞE", U"strasse"},
        {u"İstanbul", U"istanbul"},
        {u"ısı", U"ısı"},
        {u"ﬁle ﬃ ﬆ", U"file ffi st"},
        {u"ΣΊΣΥΦΟΣ", U"σισυφοσ"},
        {u"Σίσυφος", U"σισυφοσ"},
        {u"ᾳ ᾼ ΐ", U"α α ι"},
        {u"ŉ և ﬗ", U"ʼn եւ մխ"},
        {u"Å K Ω", U"a k ω"}, // Ångström, kelvin and ohm signs
        {u"𐐀", U"𐐨"},
        {u"각\u1100\u1161\u11A8", U"각각"},
        {u"が", U"か"},
        {u"👩🏽\u200D💻❤\uFE0F", U"👩🏽\u200D💻❤"},
        {u"\uFEFFé", U"\uFEFFe"},
        {u"\u0301\u0308", U""},
        {u"", U""},
    };
    for (const auto& [text, folded] : cases) {
        EXPECT_EQ(foldedScalars(text), folded) << qPrintable(text.toString());
    }
}

TEST(TextFoldingTest, SurvivesLoneSurrogates) {
    const QString broken = QChar(0xDE00) + u"É"_s + QChar(0xD83D);
    EXPECT_EQ(unicodeScalars(broken), U"\uFFFDÉ\uFFFD");
    EXPECT_EQ(foldedScalars(broken), U"\uFFFDe\uFFFD");
}

TEST(CharacterCaseTest, FollowsTheUnicodeProperties) {
    for (const char32_t scalar : U"aßéσªⅰⓐʰ𐐨") {
        EXPECT_EQ(isLowercase(scalar), scalar != 0) << static_cast<unsigned>(scalar);
        EXPECT_FALSE(isUppercase(scalar)) << static_cast<unsigned>(scalar);
    }
    for (const char32_t scalar : U"AÉΣⅠⒶ🄰𐐀") {
        EXPECT_EQ(isUppercase(scalar), scalar != 0) << static_cast<unsigned>(scalar);
        EXPECT_FALSE(isLowercase(scalar)) << static_cast<unsigned>(scalar);
    }
    for (const char32_t scalar : U"1 가ǅא") {
        EXPECT_FALSE(isLowercase(scalar) || isUppercase(scalar)) << static_cast<unsigned>(scalar);
    }
}

} // namespace
} // namespace quorvantel
