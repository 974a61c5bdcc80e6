#include "help/FoldedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> found(const QString& text, const QString& query) {
    std::vector<std::string> parts;
    for (const TextRange& range : FoldedText(text).find(foldedWords(query))) {
        parts.push_back(text.sliced(range.start, range.length).toStdString());
    }
    return parts;
}

TEST(FoldedText, FindsWordsWhateverTheirCaseAndAccents) {
    const QString text = u"Café, CAFE\u0301 and cafés; naïve. Straße ﬁnds İ"_s;
    EXPECT_THAT(found(text, u"cafe"_s), ElementsAre("Café", "CAFE\u0301", "café"));
    EXPECT_THAT(found(text, u"NAÏVE"_s), ElementsAre("naïve"));
    EXPECT_THAT(found(text, u"find"_s), ElementsAre("ﬁnd"));
    EXPECT_THAT(found(text, u"strasse"_s), ElementsAre("Straße"));
    EXPECT_THAT(found(text, u"zebra"_s), IsEmpty());
}

TEST(FoldedText, PlacesAreThoseOfTheOriginal) {
    // Before the word: a character of two units, one that folds to two, and a combining accent.
    const QString text = u"😀 ﬁ e\u0301 Hotkey"_s;
    EXPECT_THAT(FoldedText(text).find({u"hotkey"_s}),
                ElementsAre(TextRange{text.indexOf(u'H'), 6}));
    EXPECT_THAT(found(text, u"😀"_s), ElementsAre("😀"));
}

TEST(FoldedText, OverlappingPlacesAreJoined) {
    EXPECT_THAT(found(u"hotkeys hot"_s, u"hot tkey"_s), ElementsAre("hotkey", "hot"));
    EXPECT_THAT(found(u"aaaa"_s, u"a aa"_s), ElementsAre("aaaa"));
}

TEST(FoldedText, WordsOfAQuery) {
    EXPECT_EQ(foldedWords(u"  Öl\t öl  x\u0301\n"_s), (QStringList{u"ol"_s, u"x"_s}));
    EXPECT_EQ(foldedWords(u" \u0301 "_s), QStringList());
}

} // namespace
} // namespace quorvantel::help
