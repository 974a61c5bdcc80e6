#include "catalogue/AppIndexer.h"
#include "platform/linux/DesktopEntryApplications.h"
#include "platform/linux/PropertyListBundleReader.h"
#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"
#include "search/SearchEngine.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <random>
#include <utility>

/// How many letters a launch costs the people who use the launcher, by what they type: the figure
/// that the ranking is there for. The applications are those of the desktop entries in the folders
/// that the arguments name, else those of this machine; their use is simulated.
namespace quorvantel {
namespace {

constexpr int launches = 10'000;
constexpr double day = 86'400;

/// Presses of an arrow key that a person prefers to another letter.
constexpr std::size_t rowsInReach = 1;

using Random = std::mt19937;
/// The text that a person has in mind for an application.
using Habit = std::function<QString(const LaunchTarget&, Random&)>;

QString name(const LaunchTarget& target, Random& /*random*/) {
    return target.displayName().toLower();
}

QString initials(const LaunchTarget& target, Random& /*random*/) {
    QString letters;
    for (const QString& word : target.displayName().split(u' ', Qt::SkipEmptyParts)) {
        letters += word.front();
    }
    return letters.size() > 1 ? letters.toLower() : target.displayName().toLower();
}

/// A word of the key at a place among the secondary ones, which have "·" before each word; else the
/// name.
QString secondaryWord(const LaunchTarget& target, bool wantsProgram, Random& random) {
    for (const QString& key : target.searchKeys()) {
        if (key.startsWith(u'·') && key.contains(u' ') != wantsProgram) {
            const QStringList words = QString(key).remove(u'·').split(u' ');
            return words[static_cast<qsizetype>(random() % static_cast<std::size_t>(words.size()))];
        }
    }
    return name(target, random);
}

QString purpose(const LaunchTarget& target, Random& random) {
    return random() % 3 == 0 ? secondaryWord(target, false, random) : name(target, random);
}

QString command(const LaunchTarget& target, Random& random) {
    return secondaryWord(target, true, random);
}

/// Letters and arrow keys until the application is selected; nothing if it is never found.
std::optional<std::size_t> keysFor(const LaunchTarget& wanted, const QString& text,
                                   SearchEngine& engine, double now) {
    for (qsizetype letters = 1; letters <= text.size(); ++letters) {
        const auto found = engine.search(text.first(letters), now);
        for (std::size_t row = 0; row < found.size(); ++row) {
            if (found[row] == wanted && (row <= rowsInReach || letters == text.size())) {
                engine.setQuery(text.first(letters));
                return static_cast<std::size_t>(letters) + row;
            }
        }
    }
    return std::nullopt;
}

struct Cost {
    double keys = 0;
    double lost = 0;
};

/// Ten launches a day, of few applications often and of many seldom (Zipf's law).
/// `known` has the words that people think of, `searched` those that the launcher knows.
Cost simulate(const std::vector<LaunchTarget>& known, const std::vector<LaunchTarget>& searched,
              const Habit& habit) {
    Random random(42);
    std::vector<LaunchTarget> liked = known;
    std::ranges::shuffle(liked, random);
    std::vector<double> weights;
    for (std::size_t rank = 1; rank <= liked.size(); ++rank) {
        weights.push_back(1.0 / static_cast<double>(rank));
    }
    std::discrete_distribution<std::size_t> choice(weights.begin(), weights.end());
    // Nothing can be written there, so the stores stay in memory.
    const QString nowhere = QStringLiteral("/dev/null/nowhere");
    FrecencyStore frecency(nowhere);
    LearnedAbbreviationStore learned(nowhere);
    SearchEngine engine(frecency, &learned);
    engine.setTargets(searched);
    Cost cost;
    for (int launch = 0; launch < launches; ++launch) {
        const double now = launch * day / 10;
        const LaunchTarget& wanted = liked[choice(random)];
        const QString text = habit(wanted, random);
        const auto keys = keysFor(wanted, text, engine, now);
        if (!keys) {
            cost.lost += 1;
            cost.keys += static_cast<double>(text.size());
            continue;
        }
        cost.keys += static_cast<double>(*keys);
        frecency.record(wanted.id(), now);
        if (engine.search(engine.query(), now).front() != wanted) {
            learned.learn(engine.query(), wanted.id(), now);
        }
    }
    return {cost.keys / launches, cost.lost / launches};
}

/// As the applications were without any secondary names.
std::vector<LaunchTarget> byNamesOnly(const std::vector<LaunchTarget>& targets) {
    std::vector<LaunchTarget> list;
    for (const LaunchTarget& target : targets) {
        QStringList keys = target.searchKeys();
        keys.removeIf([](const QString& key) { return key.startsWith(u'·'); });
        list.emplace_back(target.id(), target.displayName(), keys, target.icon(), target.kind());
    }
    return list;
}

} // namespace
} // namespace quorvantel

int main(int argc, char** argv) {
    using namespace quorvantel;
    const QCoreApplication application(argc, argv);
    // The stores say of each launch that they could not write it down.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    const QStringList folders = QCoreApplication::arguments().mid(1);
    const platform::DesktopEntryApplications installed(
        folders.isEmpty() ? platform::DesktopEntryApplications::standardDirectories() : folders);
    const platform::PropertyListBundleReader bundles;
    const auto targets = AppIndexer({}, {}, bundles, installed).scan();
    if (targets.empty()) {
        std::fputs("no applications\n", stderr);
        return 1;
    }
    std::printf("%zu applications; letters a launch, never found\n%-10s %12s %16s\n",
                targets.size(), "typing", "names alone", "with the words");
    for (const auto& [title, habit] : {std::pair<const char*, Habit>("names", name),
                                       {"initials", initials},
                                       {"purposes", purpose},
                                       {"commands", command}}) {
        const Cost before = simulate(targets, byNamesOnly(targets), habit);
        const Cost after = simulate(targets, targets, habit);
        std::printf("%-10s %5.2f %5.1f%% %9.2f %5.1f%%\n", title, before.keys, 100 * before.lost,
                    after.keys, 100 * after.lost);
    }
    return 0;
}
