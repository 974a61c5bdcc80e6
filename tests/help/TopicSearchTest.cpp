#include "help/TopicSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TopicSearch search() {
    TopicSearch search;
    search.add(u"First Steps"_s, u"Press the hotkey."_s);
    search.add(u"Hotkey"_s, u"Choose another.\n"_s + u"word "_s.repeated(100) +
                                u"Then press it."_s + u" more"_s.repeated(100));
    search.add(u"Privacy"_s, u"Nothing is sent."_s);
    return search;
}

std::vector<std::size_t> topics(const std::vector<TopicMatch>& matches) {
    std::vector<std::size_t> result;
    for (const TopicMatch& match : matches) {
        result.push_back(match.topic);
    }
    return result;
}

std::vector<std::string> parts(const QString& text, const std::vector<TextRange>& ranges) {
    std::vector<std::string> result;
    for (const TextRange& range : ranges) {
        result.push_back(text.sliced(range.start, range.length).toStdString());
    }
    return result;
}

TEST(TopicSearch, EveryWordMustOccurInTitleOrText) {
    EXPECT_THAT(topics(search().find(u"HOTKEY"_s)), ElementsAre(0, 1));
    EXPECT_THAT(topics(search().find(u"hotkey then"_s)), ElementsAre(1));
    EXPECT_THAT(topics(search().find(u"first press"_s)), ElementsAre(0));
    EXPECT_THAT(topics(search().find(u"hotkey sent"_s)), IsEmpty());
    EXPECT_THAT(topics(search().find(u"  "_s)), IsEmpty());
}

TEST(TopicSearch, SnippetShowsTheFirstPlaceInTheText) {
    const auto matches = search().find(u"press hotkey"_s);
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_EQ(matches[0].snippet, u"Press the hotkey."_s);
    EXPECT_THAT(parts(matches[0].snippet, matches[0].inSnippet), ElementsAre("Press", "hotkey"));
    EXPECT_THAT(matches[0].inTitle, IsEmpty());

    const QString snippet = matches[1].snippet;
    EXPECT_TRUE(snippet.startsWith(u"…word "_s));
    EXPECT_TRUE(snippet.endsWith(u'…'));
    EXPECT_LT(snippet.size(), 130);
    EXPECT_THAT(parts(snippet, matches[1].inSnippet), ElementsAre("press"));
    EXPECT_THAT(parts(u"Hotkey"_s, matches[1].inTitle), ElementsAre("Hotkey"));
}

TEST(TopicSearch, SnippetOfAMatchInTheTitleAloneIsTheBeginningOnOneLine) {
    const auto matches = search().find(u"hotk"_s);
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_TRUE(matches[1].snippet.startsWith(u"Choose another. word"_s));
    EXPECT_THAT(matches[1].inSnippet, IsEmpty());
}

} // namespace
} // namespace quorvantel::help
