#include "search/FuzzyScorer.h"

#include "search/LetterMask.h"
#include "search/ReferenceScorer.h"

#include <gtest/gtest.h>

#include <random>

namespace quorvantel {
namespace {

using Positions = std::vector<int>;

QString randomText(std::mt19937& random, size_t limit) {
    const QStringList& letters = testing::nastyLetters();
    QString text;
    for (size_t length = random() % (limit + 1); length > 0; --length) {
        text += letters[static_cast<qsizetype>(random()) % letters.size()];
    }
    return text;
}

/// A text that is likely to be found in the key: some of its units, in order.
QString randomPart(std::mt19937& random, const QString& key) {
    QString part;
    for (const QChar unit : key) {
        if (random() % 3 == 0) {
            part += random() % 2 == 0 ? unit : unit.toUpper();
        }
    }
    return part;
}

TEST(FuzzyScorerTest, AgreesWithTheFormulasToTheLastBit) {
    std::mt19937 random(20010101);
    int matches = 0;
    for (int round = 0; round < 20'000; ++round) {
        const QString key = randomText(random, 24);
        const QString query = round % 4 == 0 ? randomText(random, 4) : randomPart(random, key);
        const auto expected = testing::referenceMatch(query, key);
        const auto match = FuzzyScorer::match(query, key);
        const auto score = FuzzyScorer::score(query, key);
        ASSERT_EQ(match, expected) << qPrintable(query) << " in " << qPrintable(key);
        ASSERT_EQ(score.has_value(), expected.has_value());
        if (expected) {
            ASSERT_EQ(*score, expected->score) << qPrintable(query) << " in " << qPrintable(key);
            ++matches;
        }
    }
    EXPECT_GT(matches, 10'000);
}

TEST(FuzzyScorerTest, PrefersStartsOfWordsAndRuns) {
    const auto settings = FuzzyScorer::match(u"ss", u"System Settings");
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->positions, (Positions{0, 7}));

    // The whole key: 0.9 + 1.0 + 1.0 + 1.0, without any gap.
    EXPECT_EQ(FuzzyScorer::score(u"mail", u"Mail"), 0.9 + 1.0 + 1.0 + 1.0);
    EXPECT_GT(FuzzyScorer::score(u"mail", u"Mail"), FuzzyScorer::score(u"mail", u"Mailbox"));
    EXPECT_GT(FuzzyScorer::score(u"ip", u"iPhone"), FuzzyScorer::score(u"ip", u"iphone"));
    // Half price for the first character after the match, the full price for those that follow.
    EXPECT_EQ(FuzzyScorer::score(u"a", u"abc"), -0.005 * 0 + 0.9 - 0.005 - 0.01);
    EXPECT_EQ(FuzzyScorer::score(u"a", u"bca"), -0.005 * 2 + 0.0);
}

TEST(FuzzyScorerTest, LetterMaskNeverRejectsAContainedText) {
    std::mt19937 random(0x5eed);
    for (int round = 0; round < 2'000; ++round) {
        std::u32string key;
        for (size_t length = random() % 40; length > 0; --length) {
            key += static_cast<char32_t>(random() % (round % 2 == 0 ? 0x80 : 0x110000));
        }
        const std::u32string part = key.substr(0, key.size() / 2);
        ASSERT_FALSE(lacksLetters(letterMask(key), letterMask(part)));
    }
    EXPECT_TRUE(lacksLetters(letterMask(U"calendar"), letterMask(U"m")));
    EXPECT_TRUE(lacksLetters(letterMask(U"calendar 2"), letterMask(U"1")));
}

} // namespace
} // namespace quorvantel
