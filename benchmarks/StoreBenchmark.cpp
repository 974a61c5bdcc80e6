#include "platform/PrivateFile.h"
#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdint>

/// What a launch and a start cost once much was launched and learned: ten queries a target. The
/// files are flushed to the disk of the temporary folder; with TMPDIR=/dev/shm the disk costs
/// nothing.
namespace quorvantel {
namespace {

constexpr double now = 785000000.123456;
constexpr std::int64_t queriesPerTarget = 10;

QString identifier(std::int64_t target) {
    return QStringLiteral("org.example.Application%1.desktop").arg(target);
}

QString query(std::int64_t number) {
    return QStringLiteral("query %1").arg(number);
}

/// The two files as the stores write them, made without the stores.
struct FullStores {
    explicit FullStores(std::int64_t targets) {
        QByteArray launches;
        QByteArray picks;
        for (std::int64_t target = 0; target < targets; ++target) {
            const QByteArray id = '"' + identifier(target).toUtf8() + "\":";
            const QByteArray date = QByteArray::number(now - static_cast<double>(target), 'f', 6);
            launches += id + R"({"f":2.718281828459045,"lastUpdate":)" + date + "},";
            for (std::int64_t more = 0; more < queriesPerTarget; ++more) {
                picks += '"' + query(target * queriesPerTarget + more).toUtf8() + "\":{" + id +
                         R"({"lastUpdate":)" + date + R"(,"weight":1.4142135623730951}},)";
            }
        }
        write(QStringLiteral("frecency.json"), launches);
        write(QStringLiteral("abbreviations.json"), picks);
    }

    QTemporaryDir folder;
    qsizetype size = 0;

private:
    void write(const QString& name, QByteArray members) {
        members.chop(1);
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::WriteOnly)) {
            size += file.write('{' + members + '}');
        }
    }
};

void launch(benchmark::State& state) {
    const FullStores stores(state.range(0));
    FrecencyStore frecency(stores.folder.path());
    LearnedAbbreviationStore learned(stores.folder.path());
    std::int64_t next = 0;
    for (auto _ : state) {
        frecency.record(identifier(next), now);
        learned.learn(query(next), identifier(next), now);
        ++next;
    }
}
BENCHMARK(launch)->ArgName("targets")->Arg(100)->Arg(1000)->Arg(10'000)->UseRealTime()->Unit(
    benchmark::kMillisecond);

/// What the disk takes of a launch: files of the same size, written and flushed.
void disk(benchmark::State& state) {
    const FullStores stores(state.range(0));
    const QByteArray content(stores.size, 'x');
    for (auto _ : state) {
        platform::replacePrivateFile(stores.folder.filePath(QStringLiteral("file")), content);
    }
}
BENCHMARK(disk)->ArgName("targets")->Arg(100)->Arg(1000)->Arg(10'000)->UseRealTime()->Unit(
    benchmark::kMillisecond);

void start(benchmark::State& state) {
    const FullStores stores(state.range(0));
    for (auto _ : state) {
        const FrecencyStore frecency(stores.folder.path());
        const LearnedAbbreviationStore learned(stores.folder.path());
        benchmark::DoNotOptimize(frecency.entries().size() + learned.table().size());
    }
}
BENCHMARK(start)->ArgName("targets")->Arg(100)->Arg(1000)->Arg(10'000)->Unit(
    benchmark::kMillisecond);

} // namespace
} // namespace quorvantel

BENCHMARK_MAIN();
