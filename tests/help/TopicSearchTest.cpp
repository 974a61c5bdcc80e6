#include "help/TopicSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TopicSearch search() {
    TopicSearch search;
    search.add(QStringLiteral("First Steps"), QStringLiteral("Press the hotkey."));
    search.add(QStringLiteral("Hotkey"),
               QStringLiteral("Choose another.\n") + QStringLiteral("word ").repeated(100) +
                   QStringLiteral("Then press it.") + QStringLiteral(" more").repeated(100));
    search.add(QStringLiteral("Privacy"), QStringLiteral("Nothing is sent."));
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
    EXPECT_THAT(topics(search().find(QStringLiteral("HOTKEY"))), ElementsAre(0, 1));
    EXPECT_THAT(topics(search().find(QStringLiteral("hotkey then"))), ElementsAre(1));
    EXPECT_THAT(topics(search().find(QStringLiteral("first press"))), ElementsAre(0));
    EXPECT_THAT(topics(search().find(QStringLiteral("hotkey sent"))), IsEmpty());
    EXPECT_THAT(topics(search().find(QStringLiteral("  "))), IsEmpty());
}

TEST(TopicSearch, SnippetShowsTheFirstPlaceInTheText) {
    const auto matches = search().find(QStringLiteral("press hotkey"));
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_EQ(matches[0].snippet, QStringLiteral("Press the hotkey."));
    EXPECT_THAT(parts(matches[0].snippet, matches[0].inSnippet), ElementsAre("Press", "hotkey"));
    EXPECT_THAT(matches[0].inTitle, IsEmpty());

    const QString snippet = matches[1].snippet;
    EXPECT_TRUE(snippet.startsWith(QStringLiteral("…word ")));
    EXPECT_TRUE(snippet.endsWith(u'…'));
    EXPECT_LT(snippet.size(), 130);
    EXPECT_THAT(parts(snippet, matches[1].inSnippet), ElementsAre("press"));
    EXPECT_THAT(parts(QStringLiteral("Hotkey"), matches[1].inTitle), ElementsAre("Hotkey"));
}

TEST(TopicSearch, SnippetOfAMatchInTheTitleAloneIsTheBeginningOnOneLine) {
    const auto matches = search().find(QStringLiteral("hotk"));
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_TRUE(matches[1].snippet.startsWith(QStringLiteral("Choose another. word")));
    EXPECT_THAT(matches[1].inSnippet, IsEmpty());
}

} // namespace
} // namespace quorvantel::help
