#include "Allocations.h"
#include "catalogue/SecondaryKey.h"
#include "search/FrecencyStore.h"
#include "search/FuzzyScorer.h"
#include "search/LearnedAbbreviationStore.h"
#include "search/PreparedKey.h"
#include "search/QueryMatcher.h"
#include "search/SearchEngine.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <utility>

/// What a keystroke and a new catalogue cost, with catalogues that grow far beyond a real one.
namespace quorvantel {
namespace {

constexpr double now = 785000000.0;

QString word(std::mt19937& random) {
    static constexpr std::array syllables{u"ca", u"le",  u"ndar", u"ter", u"mi",  u"nal", u"ma",
                                          u"il", u"po",  u"do",   u"sys", u"tem", u"set", u"ting",
                                          u"mu", u"sic", u"fi",   u"né",  u"so",  u"gra"};
    QString text;
    for (size_t count = 2 + random() % 3; count > 0; --count) {
        text += QStringView(syllables[random() % syllables.size()]);
    }
    text[0] = text[0].toUpper();
    return text;
}

/// Targets with three keys each: a name of one to three words, a bundle identifier, and eight words
/// for their purpose.
std::vector<LaunchTarget> catalogue(std::int64_t size) {
    std::mt19937 random(42);
    std::vector<LaunchTarget> targets;
    targets.reserve(static_cast<size_t>(size));
    for (std::int64_t i = 0; i < size; ++i) {
        QString name = word(random);
        for (size_t more = random() % 3; more > 0; --more) {
            name += u' ' + word(random);
        }
        const QString id = u"org.example." + word(random) + QString::number(i);
        QString purpose;
        for (int words = 0; words < 8; ++words) {
            purpose += word(random) + u' ';
        }
        targets.push_back(
            {id, name, {name, id, secondaryKey(purpose)}, {}, LaunchTarget::App{QUrl(), id}});
    }
    return targets;
}

/// An engine in the state of a year's use: a fifth of the targets launched, some queries learned.
struct UsedLauncher {
    explicit UsedLauncher(std::int64_t size) : UsedLauncher(catalogue(size)) {}
    explicit UsedLauncher(std::vector<LaunchTarget> catalogue) : targets(std::move(catalogue)) {
        for (size_t i = 0; i < std::min<size_t>(targets.size(), 500); i += 5) {
            frecency.record(targets[i].id(), now - static_cast<double>(i) * 3600);
            learned.learn(QStringLiteral("ma"), targets[i].id(), now);
        }
        engine.setTargets(targets);
    }

    QTemporaryDir directory;
    std::vector<LaunchTarget> targets;
    FrecencyStore frecency{directory.path()};
    LearnedAbbreviationStore learned{directory.path()};
    SearchEngine engine{frecency, &learned, [] { return now; }};
};

void scoreOfPreparedKey(benchmark::State& state) {
    QueryMatcher matcher(u"sset");
    const PreparedKey key(u"System Settings");
    for (auto _ : state) {
        benchmark::DoNotOptimize(matcher.score(key.view()));
    }
}
BENCHMARK(scoreOfPreparedKey);

void rejectionOfPreparedKey(benchmark::State& state) {
    QueryMatcher matcher(u"calq");
    const PreparedKey key(u"System Settings");
    for (auto _ : state) {
        benchmark::DoNotOptimize(matcher.score(key.view()));
    }
}
BENCHMARK(rejectionOfPreparedKey);

void matchWithPositions(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(FuzzyScorer::match(u"sset", u"System Settings"));
    }
}
BENCHMARK(matchWithPositions);

void measureKeystroke(benchmark::State& state, SearchEngine& engine, const QString& query) {
    // What the engine keeps from one keystroke to the next.
    engine.setQuery(query);
    const std::uint64_t before = allocations();
    for (auto _ : state) {
        engine.setQuery(query);
    }
    state.counters["results"] = static_cast<double>(engine.results().size());
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocations() - before),
                                                       benchmark::Counter::kAvgIterations);
}

/// One query of the length that the second argument gives, as after the last of its keystrokes.
void keystroke(benchmark::State& state) {
    UsedLauncher launcher(state.range(0));
    measureKeystroke(state, launcher.engine, QStringLiteral("master").left(state.range(1)));
}
BENCHMARK(keystroke)
    ->ArgNames({"targets", "letters"})
    ->ArgsProduct({{200, 2000, 10'000}, {1, 2, 4, 6}})
    ->Unit(benchmark::kMicrosecond);

void targetReplacement(benchmark::State& state) {
    UsedLauncher launcher(state.range(0));
    std::vector<LaunchTarget> reversed(launcher.targets.rbegin(), launcher.targets.rend());
    for (auto _ : state) {
        // Another order each time, as equal targets would not be prepared again.
        launcher.engine.setTargets(reversed);
        std::swap(reversed, launcher.targets);
    }
}
BENCHMARK(targetReplacement)
    ->ArgName("targets")
    ->Arg(200)
    ->Arg(2000)
    ->Arg(10'000)
    ->Unit(benchmark::kMicrosecond);

/// A line of the list becomes a target whose name is the line's first word and whose only key is
/// the line.
std::vector<LaunchTarget> listed(const QString& path) {
    QFile file(path);
    std::vector<LaunchTarget> targets;
    if (!file.open(QIODevice::ReadOnly)) {
        return targets;
    }
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        const QString name = line.section(u' ', 0, 0);
        targets.push_back({name, name, {line}, {}, LaunchTarget::App{QUrl(), name}});
    }
    return targets;
}

/// Keystrokes and a new catalogue, for a list of real names such as those of a distribution's
/// packages.
void registerList(const QString& path) {
    static const std::vector<LaunchTarget> targets = listed(path);
    for (const char* const query : {"f", "lo", "gim", "fire", "chrom", "vscode"}) {
        benchmark::RegisterBenchmark((std::string("listKeystroke/") + query).c_str(),
                                     [query](benchmark::State& state) {
                                         UsedLauncher launcher(targets);
                                         measureKeystroke(state, launcher.engine,
                                                          QString::fromLatin1(query));
                                     })
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::RegisterBenchmark("listReplacement", [](benchmark::State& state) {
        UsedLauncher launcher(targets);
        std::vector<LaunchTarget> reversed(targets.rbegin(), targets.rend());
        std::vector<LaunchTarget> other = targets;
        for (auto _ : state) {
            launcher.engine.setTargets(reversed);
            std::swap(reversed, other);
        }
    })->Unit(benchmark::kMillisecond);
}

} // namespace
} // namespace quorvantel

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // The C locale would do without the collation that a user's locale has.
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    benchmark::Initialize(&argc, argv);
    if (argc > 1) {
        quorvantel::registerList(QString::fromLocal8Bit(argv[1]));
        --argc;
    }
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
