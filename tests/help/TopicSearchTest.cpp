#include "help/TopicSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> parts(const QString& text, const std::vector<TextRange>& ranges) {
    std::vector<std::string> result;
    for (const TextRange& range : ranges) {
        result.push_back(text.sliced(range.start, range.length).toStdString());
    }
    return result;
}

std::vector<std::string> found(const QString& text, const QString& query) {
    return parts(text, FoldedText(text).find(foldedWords(query)));
}

TEST(FoldedText, FindsWordsWhateverTheirCaseAndAccents) {
    const QString text = u"Café, CAFE\u0301 and cafés; naïve. Straße ﬁnds İ"_s;
    EXPECT_THAT(found(text, u"cafe"_s), ElementsAre("Café", "CAFE\u0301", "café"));
    EXPECT_THAT(found(text, u"NAÏVE"_s), ElementsAre("naïve"));
    EXPECT_THAT(found(text, u"find"_s), ElementsAre("ﬁnd"));
    EXPECT_THAT(found(text, u"strasse"_s), ElementsAre("Straße"));
    EXPECT_THAT(found(text, u"zebra"_s), IsEmpty());
    EXPECT_EQ(foldedWords(u"  Öl\t öl  x\u0301 \u0301\n"_s), (QStringList{u"ol"_s, u"x"_s}));
}

TEST(FoldedText, PlacesAreThoseOfTheOriginalAndJoinedWhereTheyOverlap) {
    // Before the word: a character of two units, one that folds to two, and a combining accent.
    const QString text = u"😀 ﬁ e\u0301 Hotkey"_s;
    EXPECT_THAT(FoldedText(text).find({u"hotkey"_s}),
                ElementsAre(TextRange{text.indexOf(u'H'), 6}));
    EXPECT_THAT(found(text, u"😀"_s), ElementsAre("😀"));
    EXPECT_THAT(found(u"hotkeys hot"_s, u"hot tkey"_s), ElementsAre("hotkey", "hot"));
    EXPECT_THAT(found(u"aaaa"_s, u"a aa"_s), ElementsAre("aaaa"));
}

class TopicSearchTest : public ::testing::Test {
protected:
    TopicSearchTest() {
        search.add(u"First Steps"_s, u"Press the hotkey."_s);
        search.add(u"Hotkey"_s, u"Choose another.\n"_s + u"word "_s.repeated(100) +
                                    u"Then press it."_s + u" more"_s.repeated(100));
        search.add(u"Privacy"_s, u"Nothing is sent."_s);
    }

    std::vector<std::size_t> topics(const QString& query) const {
        std::vector<std::size_t> result;
        for (const TopicMatch& match : search.find(query)) {
            result.push_back(match.topic);
        }
        return result;
    }

    TopicSearch search;
};

TEST_F(TopicSearchTest, EveryWordMustOccurInTitleOrText) {
    EXPECT_THAT(topics(u"HOTKEY"_s), ElementsAre(0, 1));
    EXPECT_THAT(topics(u"hotkey then"_s), ElementsAre(1));
    EXPECT_THAT(topics(u"first press"_s), ElementsAre(0));
    EXPECT_THAT(topics(u"hotkey sent"_s), IsEmpty());
    EXPECT_THAT(topics(u"  "_s), IsEmpty());
}

TEST_F(TopicSearchTest, SnippetShowsTheFirstPlaceInTheTextOrElseItsBeginning) {
    const auto matches = search.find(u"press hotkey"_s);
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_EQ(matches[0].snippet, u"Press the hotkey."_s);
    EXPECT_THAT(parts(matches[0].snippet, matches[0].inSnippet), ElementsAre("Press", "hotkey"));
    EXPECT_THAT(matches[0].inTitle, IsEmpty());

    const QString snippet = matches[1].snippet;
    EXPECT_TRUE(snippet.startsWith(u"…word "_s) && snippet.endsWith(u'…'));
    EXPECT_LT(snippet.size(), 130);
    EXPECT_THAT(parts(snippet, matches[1].inSnippet), ElementsAre("press"));
    EXPECT_THAT(parts(u"Hotkey"_s, matches[1].inTitle), ElementsAre("Hotkey"));

    const TopicMatch inTitle = search.find(u"hotk"_s).at(1);
    EXPECT_TRUE(inTitle.snippet.startsWith(u"Choose another. word"_s));
    EXPECT_THAT(inTitle.inSnippet, IsEmpty());
}

} // namespace
} // namespace quorvantel::help
