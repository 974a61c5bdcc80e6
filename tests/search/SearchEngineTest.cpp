#include "search/SearchEngine.h"

#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"
#include "search/NameOrder.h"
#include "search/ReferenceScorer.h"
#include "support/TestFiles.h"

#include <QCollator>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <list>
#include <random>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

constexpr double start = 785000000.0;

LaunchTarget target(const QString& id, const QString& name, const QStringList& keys) {
    return {id, name, keys, {}, LaunchTarget::App{QUrl(), id}};
}

/// A target that is its own only search key.
LaunchTarget named(const QString& name) {
    return target(name, name, {name});
}

std::vector<LaunchTarget> catalogue(std::initializer_list<const char*> names) {
    std::vector<LaunchTarget> targets;
    for (const char* name : names) {
        targets.push_back(named(QString::fromUtf8(name)));
    }
    return targets;
}

QStringList ids(const auto& targets) {
    QStringList list;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        list += targets[i].id();
    }
    return list;
}

QStringList list(const char* commaSeparated) {
    return QString::fromUtf8(commaSeparated).split(u',');
}

class SearchEngineTest : public ::testing::Test {
protected:
    SearchEngineTest() {
        QObject::connect(&engine, &SearchEngine::queryChanged, [this] { signals_ += u'q'; });
        QObject::connect(&engine, &SearchEngine::resultsChanged, [this] { signals_ += u'r'; });
        QObject::connect(&engine, &SearchEngine::targetsChanged, [this] { signals_ += u't'; });
        QObject::connect(&engine, &SearchEngine::resetTokenChanged, [this] { signals_ += u'x'; });
    }

    QStringList search(const char* query) const {
        return ids(engine.search(QString::fromUtf8(query), now));
    }

    QString takeSignals() { return std::exchange(signals_, {}); }

    QTemporaryDir directory;
    double now = start;
    FrecencyStore frecency{directory.path()};
    LearnedAbbreviationStore learned{directory.path()};
    SearchEngine engine{frecency, &learned, [this] { return now; }};

private:
    QString signals_;
};

struct Ranked {
    QString id;
    QString name;
    double score;
};

/// The ranking formulas, written down literally; names are ASCII.
QStringList referenceRanking(const std::vector<LaunchTarget>& targets, const QString& query,
                             const FrecencyStore& frecency, const LearnedAbbreviationStore& learned,
                             double now) {
    std::vector<Ranked> ranked;
    std::vector<double> weights;
    double largest = 0.0;
    for (const LaunchTarget& target : targets) {
        double best = std::nan("");
        for (const QString& key : target.searchKeys()) {
            const auto match = testing::referenceMatch(query, key);
            if (match && !(match->score <= best)) {
                best = match->score;
            }
        }
        if (std::isnan(best)) {
            continue;
        }
        ranked.push_back({target.id(), target.displayName().toLower(), best});
        const auto entry = frecency.entries().find(target.id());
        const double lambda = std::log(2.0) / 10.0;
        weights.push_back(entry == frecency.entries().end()
                              ? 0.0
                              : entry->f * std::exp(-lambda * (now - entry->lastUpdate) / 86400.0));
        largest = std::max(largest, weights.back());
    }
    for (size_t i = 0; i < ranked.size(); ++i) {
        if (largest > 0.0) {
            ranked[i].score = ranked[i].score * (1 + 0.5 * weights[i] / largest);
        }
        ranked[i].score = ranked[i].score + learned.boost(query, ranked[i].id, now);
    }
    std::list<Ranked> sorted(ranked.begin(), ranked.end());
    sorted.sort([](const Ranked& a, const Ranked& b) {
        return a.score != b.score ? a.score > b.score : a.name < b.name;
    });
    QStringList order;
    for (const Ranked& one : sorted) {
        order += one.id;
    }
    return order;
}

TEST_F(SearchEngineTest, RanksAsTheFormulasSay) {
    std::mt19937 random(3);
    const auto age = [&random] { return static_cast<double>(random() % 5'000'000); };
    const QString letters = u"abcAB -"_s;
    std::vector<LaunchTarget> targets;
    for (int i = 0; i < 300; ++i) {
        QStringList keys;
        for (int key = 0; key < 3; ++key) {
            QString text;
            for (int length = 0; length < 5; ++length) {
                text += letters[static_cast<int>(random() % 7)];
            }
            keys += text;
        }
        targets.push_back(target(QString::number(i), keys[0].left(2), keys));
        if (random() % 4 == 0) {
            frecency.record(QString::number(i), start - age());
        }
        if (random() % 8 == 0) {
            learned.learn(u"ab"_s, QString::number(i), start - age());
        }
    }
    for (int round = 0; round < 2; ++round) {
        engine.setTargets(targets);
        for (const char* query : {"a", "ab", "abc", "b a", "-", "cab", "aB", "ac-"}) {
            const QStringList expected =
                referenceRanking(targets, QString::fromUtf8(query), frecency, learned, now);
            EXPECT_EQ(search(query), expected) << query;
            EXPECT_FALSE(expected.isEmpty()) << query;
        }
        std::reverse(targets.begin(), targets.end());
    }
}

TEST_F(SearchEngineTest, SurroundingSpacesDoNotCountButNewlinesDo) {
    engine.setTargets(catalogue({"Chess"}));
    for (const char* query : {"", "   ", "\t \u00A0\u3000", "chess\n", "\n"}) {
        EXPECT_EQ(search(query), QStringList()) << query;
    }
    EXPECT_EQ(search("\t\u00A0 chess \u2003"), list("Chess"));
}

TEST_F(SearchEngineTest, EqualScoresAreAlphabeticalWhateverTheCase) {
    engine.setTargets(catalogue({"Chess", "cable", "calms", "Cabin"}));
    EXPECT_EQ(search("c"), list("Cabin,cable,calms,Chess"));

    const QLocale earlier;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    engine.setTargets(catalogue({"Zoo", "äpp", "App", "zaa", "Äaa", "ZOO", "zoo"}));
    const QStringList sorted = search("a");
    const QStringList alike = search("zoo");
    QLocale::setDefault(earlier);
    EXPECT_EQ(sorted, list("Äaa,App,äpp,zaa"));
    EXPECT_EQ(alike, list("Zoo,ZOO,zoo"));
}

TEST_F(SearchEngineTest, OrdersNamesAsTheCollationOfAnyLanguage) {
    const QStringList parts = u"aa|z|Å|é|e|E|ll|ch|-|_| |.|1|я|Ё|е|中|文|ß|ss|+|😀"_s.split(u'|');
    const QLocale earlier;
    for (const char* language : {"C", "en_US", "da_DK", "cs_CZ", "ru_RU", "zh_CN", "ja_JP"}) {
        QLocale::setDefault(QLocale(QString::fromUtf8(language)));
        QCollator collator;
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        std::mt19937 random(1);
        std::vector<LaunchTarget> targets;
        std::vector<std::uint32_t> expected;
        for (std::uint32_t i = 0; i < 400; ++i) {
            QString name;
            for (auto count = random() % 5; count > 0; --count) {
                name += parts[static_cast<qsizetype>(random()) % parts.size()];
            }
            targets.push_back(named(name));
            expected.push_back(i);
        }
        std::ranges::stable_sort(expected, [&](std::uint32_t left, std::uint32_t right) {
            return collator.compare(targets[left].displayName(), targets[right].displayName()) < 0;
        });
        EXPECT_EQ(nameOrder(targets), expected) << language;
    }
    QLocale::setDefault(earlier);
}

TEST_F(SearchEngineTest, PicksLiftATargetWhereTheyAreLearned) {
    engine.setTargets(catalogue({"Mail", "Maps"}));
    frecency.record(u"Maps"_s, now);
    learned.learn(u"ma"_s, u"Mail"_s, now);
    EXPECT_EQ(search(" MA "), list("Mail,Maps"));
    EXPECT_EQ(search("m"), list("Maps,Mail"));

    SearchEngine unlearned(frecency, nullptr);
    unlearned.setTargets(engine.targets());
    EXPECT_EQ(ids(unlearned.search(u"ma"_s, now)), list("Maps,Mail"));
}

TEST_F(SearchEngineTest, AbsurdStoredNumbersDoNotUpsetTheOrder) {
    std::vector<LaunchTarget> targets;
    QByteArray stored;
    for (int i = 0; i < 40; ++i) {
        const QByteArray id = QByteArray("M") + QByteArray::number(100 + i);
        targets.push_back(named(QString::fromUtf8(id)));
        const char* const entries[] = {R"({"f":1e308,"lastUpdate":1e308})",
                                       R"({"f":-1,"lastUpdate":0})",
                                       R"({"f":0,"lastUpdate":1e308})"};
        if (i % 4 != 3) {
            stored += (stored.isEmpty() ? "" : ",") + ("\"" + id + "\":") + entries[i % 4];
        }
    }
    const QTemporaryDir absurd;
    testing::writeFile(absurd.filePath(u"frecency.json"_s), "{" + stored + "}");
    const FrecencyStore store(absurd.path());
    ASSERT_EQ(store.entries().size(), 30);
    SearchEngine upset(store, nullptr);
    upset.setTargets(targets);
    const QStringList order = ids(upset.search(u"m"_s, start));
    ASSERT_EQ(order.size(), 40);
    // Without a usable weight last, all others before them in alphabetical order.
    EXPECT_EQ(order.first(), u"M101"_s);
    EXPECT_EQ(order[1], u"M103"_s);
    EXPECT_EQ(order.last(), u"M138"_s);
}

TEST_F(SearchEngineTest, TellsOfRealChangesOnly) {
    engine.setTargets(catalogue({"Mail", "Maps"}));
    EXPECT_EQ(takeSignals(), u"t");
    engine.setQuery(u"m"_s);
    EXPECT_EQ(takeSignals(), u"qr");
    engine.setQuery(u"ma"_s);
    EXPECT_EQ(takeSignals(), u"q");
    engine.setQuery(u"ma"_s);
    engine.setTargets(catalogue({"Mail", "Maps"}));
    EXPECT_EQ(takeSignals(), u"");
    engine.setQuery(u"map"_s);
    EXPECT_EQ(takeSignals(), u"qr");
    engine.setTargets(catalogue({"Maps", "Mail", "Mapper"}));
    EXPECT_EQ(takeSignals(), u"tr");
    EXPECT_EQ(ids(engine.results()), list("Maps,Mapper"));

    // Equal targets keep the results, which hold their newest values.
    engine.setTargets({target(u"Maps"_s, u"Renamed"_s, list("Maps")), named(u"Mapper"_s)});
    EXPECT_EQ(takeSignals(), u"t");
    EXPECT_EQ(engine.results()[0].displayName(), u"Renamed"_s);
    engine.setTargets({target(u"Maps"_s, u"Renamed"_s, list("map,Maps")), named(u"Mapper"_s)});
    EXPECT_EQ(takeSignals(), u"t");
    LaunchTarget redrawn(u"Maps"_s, u"Renamed"_s, list("map,Maps"),
                         platform::Image::symbol(u"map"_s, {}),
                         LaunchTarget::App{QUrl(), u"Maps"_s});
    engine.setTargets({redrawn, named(u"Mapper"_s)});
    EXPECT_EQ(takeSignals(), u"t");

    engine.reset();
    EXPECT_EQ(takeSignals(), u"qrx");
    EXPECT_TRUE(engine.query().isEmpty());
    EXPECT_TRUE(engine.results().empty());
    engine.reset();
    EXPECT_EQ(takeSignals(), u"x");
    EXPECT_EQ(engine.resetToken(), 2);
}

TEST_F(SearchEngineTest, RanksAtTheTimeOfItsClockAndShowsObserversTheNewState) {
    QStringList seen;
    QObject::connect(&engine, &SearchEngine::queryChanged,
                     [&] { seen += engine.query() + u'=' + ids(engine.results()).join(u','); });
    engine.setTargets(catalogue({"Mail", "Maps"}));
    engine.setQuery(u"m"_s);
    frecency.record(u"Maps"_s, start);
    engine.setQuery(u"ma"_s);
    EXPECT_EQ(seen, (QStringList{u"m=Mail,Maps"_s, u"ma=Maps,Mail"_s}));

    // Ten thousand years later nothing is left of the launch.
    now += 1e4 * 365 * 86400;
    engine.setTargets(engine.targets());
    EXPECT_EQ(ids(engine.results()), list("Mail,Maps"));
}

} // namespace
} // namespace quorvantel
