#include "Fuzzing.h"
#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace quorvantel;
using namespace quorvantel::fuzzing;

bool isWritable(const FrecencyEntry& entry) {
    return std::isfinite(entry.f);
}

bool isWritable(const LearnedAbbreviationStore::Entry& entry) {
    return std::isfinite(entry.weight);
}

bool isWritable(const LearnedAbbreviationStore::Associations& associations) {
    return std::ranges::all_of(associations, [](const auto& entry) { return isWritable(entry); });
}

/// A store that was changed and saved is the same when it is opened again, unless a weight has no
/// JSON form, which leaves the file as it was.
void requireSaved(const auto& entries, const auto& reopened, const QString& path,
                  const QByteArray& before) {
    const bool isSaved =
        std::ranges::all_of(entries, [](const auto& entry) { return isWritable(entry); });
    require(isSaved ? reopened == entries : readFile(path) == before);
}

} // namespace

/// Opens any bytes as the files of both stores, and records a launch and a pick. What follows a
/// null character, which no JSON holds, is what is launched and was typed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray input = bytesOf(data, size);
    const qsizetype end = std::max<qsizetype>(input.indexOf('\0'), 0);
    const QByteArray content = end > 0 ? input.first(end) : input;
    const QString name = QString::fromUtf8(input.mid(end > 0 ? end + 1 : input.size()));
    constexpr double now = 785000000.0;
    const QString directory = temporaryPath(QStringLiteral("stores"));
    const QString launches = directory + QStringLiteral("/frecency.json");
    const QString picks = directory + QStringLiteral("/abbreviations.json");
    writeFile(launches, content);
    writeFile(picks, content);

    FrecencyStore frecency(directory);
    frecency.record(name, now);
    requireSaved(frecency.entries(), FrecencyStore(directory).entries(), launches, content);
    LearnedAbbreviationStore learned(directory);
    learned.learn(QStringLiteral("q ") + name, name, now);
    requireSaved(learned.table(), LearnedAbbreviationStore(directory).table(), picks, content);
    return 0;
}
