#include "search/FuzzyScorer.h"

#include "search/AfterGaps.h"
#include "search/LetterBlock.h"
#include "search/LetterMask.h"
#include "search/QueryMatcher.h"
#include "search/ReferenceScorer.h"
#include "search/SearchKeyIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
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

QString realName(std::mt19937& random) {
    static const QStringList names{
        QStringLiteral("Firefox Web Browser"),   QStringLiteral("org.gnome.Calendar"),
        QStringLiteral("LibreOffice Calc"),      QStringLiteral("gnome-control-center/display"),
        QStringLiteral("Éditeur de fichiers"),   QStringLiteral("Größenänderung"),
        QStringLiteral("Обозреватель файлов"),   QStringLiteral("Ρυθμίσεις ήχου"),
        QStringLiteral("ファイル マネージャー"), QStringLiteral("계산기"),
        QStringLiteral("आवाज़ रिकॉर्डर"),          QStringLiteral("الحاسبة"),
        QStringLiteral("iPhone-Übertragung"),    QStringLiteral("ŝanĝilo de ĉapeloj")};
    QString text = names[static_cast<qsizetype>(random()) % names.size()];
    while (random() % 3 == 0) {
        text += u' ' + names[static_cast<qsizetype>(random()) % names.size()];
    }
    return text;
}

/// A text of few letters, which can be placed in many ways that are equally good.
QString repeatedLetters(std::mt19937& random, int limit) {
    static constexpr QStringView letters = u"aab  -.";
    QString text;
    for (auto length = 1 + random() % static_cast<unsigned>(limit); length > 0; --length) {
        text += letters[static_cast<qsizetype>(random() % 7)];
    }
    return text;
}

/// The score as the launcher finds it, in a catalogue that was prepared once.
std::optional<double> scoreInCatalogue(const QString& query, const QString& key) {
    const SearchKeyIndex index({{key, key, {key}, {}, LaunchTarget::App{}}});
    QueryMatcher matcher(query);
    std::vector<Candidate> found;
    index.find(matcher, found);
    return found.empty() ? std::nullopt : std::optional(found.front().score);
}

TEST(FuzzyScorerTest, AgreesWithTheFormulasToTheLastBit) {
    std::mt19937 random(20010101);
    int matches = 0;
    for (int round = 0; round < 50'000; ++round) {
        const QString key = round % 2 == 0    ? realName(random)
                            : round % 7 == 0  ? repeatedLetters(random, 30)
                            : round % 11 == 0 ? randomText(random, 150)
                                              : randomText(random, 24);
        const QString query = round % 4 == 0   ? randomText(random, 4)
                              : round % 7 == 0 ? repeatedLetters(random, 6)
                              : round % 5 == 0 ? key.mid(random() % 8, 1 + random() % 5)
                                               : randomPart(random, key);
        const auto expected = testing::referenceMatch(query, key);
        ASSERT_EQ(FuzzyScorer::match(query, key), expected)
            << qPrintable(query) << " in " << qPrintable(key);
        const auto score = expected ? std::optional(expected->score) : std::nullopt;
        ASSERT_EQ(FuzzyScorer::score(query, key), score)
            << qPrintable(query) << " in " << qPrintable(key);
        ASSERT_EQ(scoreInCatalogue(query, key), score)
            << qPrintable(query) << " in " << qPrintable(key);
        matches += expected ? 1 : 0;
    }
    EXPECT_GT(matches, 25'000);
}

TEST(FuzzyScorerTest, FindsLettersAlikeOnAnyProcessor) {
    std::mt19937 random(64);
    for (int round = 0; round < 5'000; ++round) {
        std::vector<std::uint8_t> key(64 + Latin1Key::padding);
        std::ranges::generate(key, [&] { return static_cast<std::uint8_t>(random() % 8 * 0x24); });
        const std::span letters(key.data(), 1 + random() % 64);
        const LetterBlock wanted(static_cast<std::uint8_t>(random() % 8 * 0x24));
        std::uint64_t expected = 0;
        for (std::size_t i = 0; i < letters.size(); ++i) {
            expected |= std::uint64_t{letters[i] == wanted.bytes[0]} << i;
        }
        ASSERT_EQ(findLetter<LetterSearch>(letters, wanted), expected);
        ASSERT_EQ(findLetter<PortableLetterSearch>(letters, wanted), expected);
    }
}

TEST(FuzzyScorerTest, TakesManyGapsAwayAsOneByOne) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-8, 12);
    for (int round = 0; round < 5'000; ++round) {
        const double start = std::exp2(exponent(random)) * (round % 2 == 0 ? 1 : -1);
        double expected = start;
        for (std::size_t count = 0; count < 150; ++count) {
            ASSERT_EQ(afterGaps(start, count), expected) << start << ", " << count << " gaps";
            expected -= 0.01;
        }
    }
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
