#pragma once

#include "search/FuzzyMatch.h"

#include <QStringView>

#include <optional>

namespace quorvantel {

/// Whether a typed query is found in a search key, and how well.
///
/// The query matches when its letters appear in the key in order, adjacent or not; case and
/// diacritics do not count. Of all ways to place them the best wins: letters earn a bonus at the
/// start of words and a larger one directly after the previous matched letter, and each skipped
/// character costs a little, so that a shorter key beats a longer one with the same match. An empty
/// query matches everything with score 0.
///
/// Pure functions, for any thread. Whoever matches one query against many keys uses `QueryMatcher`
/// on keys prepared once.
class FuzzyScorer {
public:
    FuzzyScorer() = delete;

    /// The score and where the letters were found; nothing if the key does not match.
    static std::optional<FuzzyMatch> match(QStringView query, QStringView key);

    /// The score alone, equal to that of `match`, for less work.
    static std::optional<double> score(QStringView query, QStringView key);
};

} // namespace quorvantel
