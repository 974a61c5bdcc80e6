#pragma once

#include "catalogue/LaunchTarget.h"
#include "search/BestFirst.h"
#include "search/Candidate.h"
#include "search/FrecencyEntry.h"
#include "search/QueryMatcher.h"
#include "search/ReferenceDate.h"
#include "search/SearchKeyIndex.h"
#include "search/SearchResults.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quorvantel {

class FrecencyStore;
class LearnedAbbreviationStore;

/// The model behind the launcher panel: the catalogue, the query and the ranked results.
///
/// Three signals make the ranking: how well the query fits the target's best search key, how often
/// and recently the target was launched, and how often the user picked it for this very query. The
/// stores are read anew at each ranking, so a launch counts from the next keystroke on.
///
/// Main thread only: each operation runs to its end before it returns. Signals are emitted after
/// all properties have their new values, and only for a real change.
class SearchEngine : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(qint64 resetToken READ resetToken NOTIFY resetTokenChanged)

public:
    /// The clock returns seconds since 2001-01-01 00:00:00 UTC.
    using Clock = std::function<double()>;

    /// Starts with an empty catalogue and an empty query. Both stores must outlive the engine;
    /// without `learned` nothing is boosted for having been picked.
    explicit SearchEngine(const FrecencyStore& frecency, const LearnedAbbreviationStore* learned,
                          Clock now = currentReferenceDate, QObject* parent = nullptr);

    /// The catalogue, in the order in which it was given.
    const std::vector<LaunchTarget>& targets() const;

    /// Replaces the catalogue and ranks it for the current query at the current time.
    void setTargets(std::vector<LaunchTarget> targets);

    /// The search text as typed.
    const QString& query() const;

    /// Ranks the catalogue for the query at the current time.
    void setQuery(const QString& query);

    /// What was found for the current query, best first; nothing for an empty one. Always holds
    /// the catalogue's newest values, even when no `resultsChanged` told of them because only
    /// names or icons differ.
    const SearchResults& results() const;

    /// Increases with each reset. Views drop their selection whenever it changes.
    qint64 resetToken() const;

    /// Empties the query and tells the views to start over. Called whenever the panel was hidden.
    void reset();

    /// All targets of the catalogue that match the query, best first, without a limit. Spaces and
    /// tabs around the query do not count, and an empty query finds nothing.
    ///
    /// Equal scores are in the current locale's alphabetical order, case disregarded, and beyond
    /// that in catalogue order. Changes nothing.
    std::vector<LaunchTarget> search(const QString& query, double now) const;

Q_SIGNALS:
    /// The query text differs.
    void queryChanged();

    /// The identifiers in `results` or their order differ.
    void resultsChanged();

    /// The catalogue differs in any value of any target.
    void targetsChanged();

    void resetTokenChanged();

private:
    /// The launches of the target at a place.
    struct Launch {
        std::uint32_t place;
        FrecencyEntry entry;
    };

    /// What a candidate weighs by its launches.
    struct Weight {
        std::size_t candidate;
        double weight;
    };

    void assertOnOwnThread() const;
    bool updateResults();
    std::vector<std::uint32_t> rank(const QString& query, double now) const;
    void addFrecency(double now) const;
    void addLearnedBoosts(const QString& query, double now) const;
    const std::vector<Launch>& launchesByPlace() const;
    const LaunchTarget& target(std::uint32_t place) const;

    const FrecencyStore& m_frecency;
    const LearnedAbbreviationStore* m_learned;
    Clock m_now;
    SearchResults::Catalogue m_targets = std::make_shared<std::vector<LaunchTarget>>();
    SearchKeyIndex m_index;
    QString m_query;
    SearchResults m_results;
    qint64 m_resetToken = 0;
    /// The launched targets in the order of their places, as of a revision of the store.
    mutable std::vector<Launch> m_launches;
    mutable std::optional<std::uint64_t> m_launchesRevision;
    // Scratch memory of `search`, so that a keystroke allocates nothing but its results.
    mutable QueryMatcher m_matcher;
    mutable std::vector<Candidate> m_candidates;
    mutable std::vector<Weight> m_weights;
    mutable BestFirst m_sorter;
};

} // namespace quorvantel
