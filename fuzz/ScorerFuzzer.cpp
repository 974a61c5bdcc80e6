#include "Fuzzing.h"
#include "search/FuzzyScorer.h"
#include "search/QueryMatcher.h"
#include "search/ReferenceScorer.h"
#include "search/SearchKeyIndex.h"

#include <algorithm>

namespace {

using namespace quorvantel;
using namespace quorvantel::fuzzing;

/// A text that the plain formulas know the case foldings of.
QString nastyText(const QByteArray& bytes) {
    QString text;
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        const QStringList& letters = testing::nastyLetters();
        text += number < 0x80 ? QString(QLatin1Char(byte)) : letters[number % letters.size()];
    }
    return text;
}

void requireSound(const QString& query, const QString& key) {
    const auto match = FuzzyScorer::match(query, key);
    const auto score = FuzzyScorer::score(query, key);
    require(match.has_value() == score.has_value());
    // As the launcher finds it, in a catalogue that was prepared once.
    const SearchKeyIndex index({{key, key, {key}, {}, LaunchTarget::App{}}});
    QueryMatcher matcher(query);
    std::vector<Candidate> found;
    index.find(matcher, found);
    require(found.empty() ? !score : found.front().score == score);
    if (match) {
        require(match->score == *score);
        require(std::ranges::is_sorted(match->positions, std::ranges::less_equal()) ||
                match->positions.empty());
    }
}

} // namespace

/// The first byte tells how many of the others are the query; the rest is the key. Any text scores
/// alike with and without positions and in a catalogue, and a text of known letters as the plain
/// formulas say.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = bytesOf(data, size);
    const qsizetype length = size == 0 ? 0 : std::min<qsizetype>(data[0], bytes.size() - 1);
    const QByteArray query = bytes.mid(1, length);
    const QByteArray key = bytes.mid(1 + length);
    requireSound(QString::fromUtf8(query), QString::fromUtf8(key));
    const QString knownQuery = nastyText(query);
    const QString knownKey = nastyText(key);
    require(FuzzyScorer::match(knownQuery, knownKey) ==
            testing::referenceMatch(knownQuery, knownKey));
    requireSound(knownQuery, knownKey);
    return 0;
}
