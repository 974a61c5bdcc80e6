#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"
#include "search/ReferenceDate.h"
#include "support/LogLines.h"
#include "support/RandomKills.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <ctime>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using namespace testing;

constexpr double now = 785000000.0;
constexpr double day = 86400.0;

const QString chess = u"org.example.Chess"_s;
const QString mail = u"org.example.Mail"_s;

class RankingStoreTest : public ::testing::Test {
protected:
    QString directory() const { return m_home.filePath(u"data/Quorvantel"_s); }
    QString path(QStringView file) const { return directory() + u'/' + file; }

    void write(QStringView name, const QByteArray& content) const {
        writeFile(path(name), content);
    }
    QByteArray read(QStringView name) const { return readFile(path(name)); }

    LogLines log;

private:
    QTemporaryDir m_home;
};

TEST_F(RankingStoreTest, LaunchesAddUpAndFade) {
    FrecencyStore store(directory());
    EXPECT_EQ(store.weight(mail, now), 0.0);
    store.record(mail, now);
    EXPECT_EQ(store.weight(mail, now), 1.0);
    store.record(mail, now);
    EXPECT_EQ(store.weight(mail, now), 2.0);

    store.record(chess, now);
    store.record(chess, now + 10 * day);
    EXPECT_DOUBLE_EQ(store.entries()[chess].f, 1.5);
    EXPECT_EQ(store.entries()[chess].lastUpdate, now + 10 * day);
    // A clock that was set back makes the weight grow.
    EXPECT_DOUBLE_EQ(store.weight(chess, now), 3.0);
}

TEST_F(RankingStoreTest, PicksAddUpAndFadeByNormalisedQuery) {
    LearnedAbbreviationStore store(directory());
    store.learn(u"  Ch\n"_s, chess, now);
    EXPECT_EQ(store.boost(u"ch"_s, chess, now), 1.5);
    EXPECT_DOUBLE_EQ(store.boost(u"CH\t"_s, chess, now + 30 * day), 0.75);
    store.learn(u"cH"_s, chess, now);
    EXPECT_EQ(store.boost(u"ch"_s, chess, now), 3.0);
    EXPECT_EQ(store.boost(u"ch"_s, mail, now), 0.0);
    EXPECT_EQ(store.boost(u"c h"_s, chess, now), 0.0);
    store.learn(u"ΟΔΟΣ"_s, mail, now);
    EXPECT_EQ(store.boost(u"οδος"_s, mail, now), 1.5);
    EXPECT_EQ(store.table().size(), 2);
}

TEST_F(RankingStoreTest, QueriesOfOneCharacterTeachNothing) {
    LearnedAbbreviationStore store(directory());
    for (const QString& query : {QString(), u" c "_s, u"e\u0301"_s, u"각"_s,
                                 u"\u1100\u1161\u11A8"_s, u"👩\u200D💻"_s, u"🇩🇪"_s}) {
        store.learn(query, chess, now);
        EXPECT_EQ(store.boost(query, chess, now), 0.0) << qPrintable(query);
    }
    EXPECT_TRUE(store.table().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(directory()));
}

TEST_F(RankingStoreTest, NumbersSurviveTheFileUnchanged) {
    const double awkward[] = {785000000.1,        1.0 / 3.0, -0.1, 5e-324, 1.7976931348623157e308,
                              9007199254740993.0, 1e22};
    QHash<QString, FrecencyEntry> launches;
    QHash<QString, LearnedAbbreviationStore::Associations> picks;
    {
        FrecencyStore frecency(directory());
        LearnedAbbreviationStore learned(directory());
        for (const double date : awkward) {
            frecency.record(u"settings:é\"\\/%1"_s.arg(date), date);
            learned.learn(u"q \"%1\" 😀"_s.arg(date), mail, date);
            learned.learn(u"q \"%1\" 😀"_s.arg(date), mail, date + 12345.678);
        }
        launches = frecency.entries();
        picks = learned.table();
    }
    EXPECT_EQ(FrecencyStore(directory()).entries(), launches);
    EXPECT_EQ(LearnedAbbreviationStore(directory()).table(), picks);
    EXPECT_EQ(launches.size(), std::ssize(awkward));
    EXPECT_EQ(log.take(), QStringList());
}

TEST_F(RankingStoreTest, WritesTheAgreedFormForTheUserAlone) {
    FrecencyStore(directory()).record(mail, now);
    LearnedAbbreviationStore learned(directory());
    learned.learn(u"ml"_s, mail, now);

    EXPECT_EQ(read(u"frecency.json"), R"({"org.example.Mail":{"f":1,"lastUpdate":785000000}})");
    EXPECT_EQ(read(u"abbreviations.json"),
              R"({"ml":{"org.example.Mail":{"lastUpdate":785000000,"weight":1}}})");
    EXPECT_EQ(modeOf(directory()), 0700U);
    EXPECT_EQ(modeOf(path(u"abbreviations.json")), 0600U);

    learned.reset();
    EXPECT_EQ(read(u"abbreviations.json"), "{}");
    EXPECT_EQ(learned.boost(u"ml"_s, mail, now), 0.0);
}

TEST_F(RankingStoreTest, DamagedFilesAreDroppedAsAWhole) {
    const QByteArray good = R"({"good":{"f":2.5,"lastUpdate":785000000})";
    for (const char* const rest :
         {"} x", R"(,"bad":{"f":1}})", R"(,"bad":{"lastUpdate":1}})",
          R"(,"bad":{"f":1,"lastUpdate":1,"extra":1}})", R"(,"bad":{"f":"1","lastUpdate":1}})",
          R"(,"bad":{"f":true,"lastUpdate":1}})", R"(,"bad":{"f":1,"lastUpdate":null}})",
          R"(,"bad":{"f":1e999,"lastUpdate":1}})", R"(,"bad":3})"}) {
        write(u"frecency.json", good + rest);
        FrecencyStore store(directory());
        EXPECT_TRUE(store.entries().isEmpty()) << rest;
        const QStringList lines = log.take();
        ASSERT_EQ(lines.size(), 1) << rest;
        EXPECT_TRUE(lines[0].startsWith(u"Quorvantel: "_s));

        EXPECT_EQ(read(u"frecency.json"), good + rest);
        store.record(mail, now);
        EXPECT_EQ(FrecencyStore(directory()).entries().keys(), QStringList(mail));
    }
    write(u"frecency.json", good + "}");
    EXPECT_EQ(FrecencyStore(directory()).entries()[u"good"_s], (FrecencyEntry{2.5, now}));

    const QByteArray goodPick = R"({"ch":{"good":{"weight":2.5,"lastUpdate":785000000}})";
    for (const QByteArray& content :
         QByteArrayList{"", "null", "[]", goodPick + R"(,"ma":[]})",
                        goodPick + R"(,"ma":{"bad":{"f":1,"lastUpdate":1}}})",
                        goodPick + R"(,"ma":{"bad":{"weight":1,"lastUpdate":1,"extra":1}}})",
                        goodPick + R"(,"ma":{"bad":{"weight":1,"lastUpdate":"1"}}})"}) {
        write(u"abbreviations.json", content);
        EXPECT_TRUE(LearnedAbbreviationStore(directory()).table().isEmpty()) << content.constData();
        EXPECT_EQ(log.take().size(), 1) << content.constData();
    }
    write(u"abbreviations.json", goodPick + R"(,"empty":{}})");
    EXPECT_EQ(LearnedAbbreviationStore(directory()).boost(u"ch"_s, u"good"_s, now), 2.5 * 1.5);
}

TEST_F(RankingStoreTest, StartsEmptyFromWhatIsNoFile) {
    write(u"abbreviations.json", "{");
    makeFifo(path(u"frecency.json"));
    ASSERT_EQ(::truncate(qPrintable(path(u"abbreviations.json")), off_t{1} << 40), 0);

    EXPECT_TRUE(FrecencyStore(directory()).entries().isEmpty());
    EXPECT_TRUE(LearnedAbbreviationStore(directory()).table().isEmpty());
    EXPECT_EQ(log.take().size(), 2);
}

TEST_F(RankingStoreTest, StateWithoutAJsonFormIsNotWritten) {
    FrecencyStore frecency(directory());
    LearnedAbbreviationStore learned(directory());
    frecency.record(mail, now);
    learned.learn(u"ml"_s, mail, now);
    const QByteArray launches = read(u"frecency.json");
    const QByteArray picks = read(u"abbreviations.json");
    const double longAgo = -1e12;
    // So far back that the old weight, seen from then, exceeds all numbers.
    frecency.record(mail, longAgo);
    learned.learn(u"ml"_s, mail, longAgo);

    EXPECT_TRUE(std::isinf(frecency.entries()[mail].f));
    EXPECT_EQ(read(u"frecency.json"), launches);
    EXPECT_EQ(read(u"abbreviations.json"), picks);
    EXPECT_EQ(log.take().size(), 2);
}

TEST_F(RankingStoreTest, AddsToAFullFileInLessTimeThanReadingIt) {
    constexpr int known = 20'000;
    QByteArray table("{");
    for (int i = 0; i < known; ++i) {
        table += "\"query " + QByteArray::number(i) +
                 R"(":{"org.example.Chess":{"lastUpdate":1.5,"weight":1}},)";
    }
    write(u"abbreviations.json", table + R"("last":{}})");
    const std::clock_t start = std::clock();
    LearnedAbbreviationStore store(directory());
    const std::clock_t loaded = std::clock();
    store.learn(u"new"_s, chess, now);
    store.learn(u"query 7"_s, mail, now);
    const std::clock_t saved = std::clock();

    EXPECT_EQ(store.table().size(), known + 2);
    EXPECT_EQ(LearnedAbbreviationStore(directory()).table(), store.table());
    EXPECT_LT(saved - loaded, (loaded - start) / 2);
}

TEST_F(RankingStoreTest, FailedSaveKeepsTheStateInMemory) {
    ASSERT_TRUE(QDir().mkpath(path(u"frecency.json/folder")));
    FrecencyStore store(directory());
    log.take();
    store.record(mail, now);
    EXPECT_EQ(store.weight(mail, now), 1.0);
    EXPECT_EQ(log.take().size(), 1);
}

TEST_F(RankingStoreTest, AKillInASaveLosesNoFinishedOneAndTearsNothing) {
    qsizetype known = 0;
    const auto save = [&](const std::function<void()>& saved) {
        FrecencyStore launches(directory());
        LearnedAbbreviationStore picks(directory());
        for (qsizetype number = known;; ++number) {
            launches.record(QString::number(number), now);
            picks.learn(u"query %1"_s.arg(number), mail, now);
            saved();
        }
    };
    killAtRandom(save, [&](int saves) {
        const qsizetype launches = FrecencyStore(directory()).entries().size();
        const qsizetype picks = LearnedAbbreviationStore(directory()).table().size();
        known += saves;
        EXPECT_TRUE(picks >= known && picks <= launches && launches <= known + 1)
            << known << " saves, " << launches << " launches, " << picks << " picks";
        known = launches;
        // The next round repeats a pick that was lost.
        LearnedAbbreviationStore(directory()).learn(u"query %1"_s.arg(known - 1), mail, now);
    });
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join(u'\n').toStdString();
    EXPECT_LE(QDir(directory()).entryList(QDir::Files).size(), 4);
}

TEST(ReferenceDateTest, CountsSecondsSince2001) {
    const QDateTime start(QDate(2001, 1, 1), QTime(1, 0), Qt::OffsetFromUTC, 3600);
    EXPECT_EQ(secondsSinceReferenceDate(start), 0.0);
    EXPECT_EQ(secondsSinceReferenceDate(start.addMSecs(-1500)), -1.5);
    EXPECT_EQ(secondsSinceReferenceDate(QDateTime::fromSecsSinceEpoch(1763720000)), 785412800.0);
    const double before = secondsSinceReferenceDate(QDateTime::currentDateTimeUtc());
    const double current = currentReferenceDate();
    const double after = secondsSinceReferenceDate(QDateTime::currentDateTimeUtc());
    EXPECT_TRUE(before <= current && current <= after);
}

} // namespace
} // namespace quorvantel
