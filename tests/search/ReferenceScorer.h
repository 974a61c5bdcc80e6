#pragma once

#include "search/FuzzyMatch.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvantel::testing {

/// The fuzzy scorer's formulas, written down as literally and as slowly as possible. Shares no
/// code with the scorer. Knows the case foldings of `nastyLetters` only.
std::optional<FuzzyMatch> referenceMatch(const QString& query, const QString& key);

/// Letters, separators, marks and foldings that have made scorers stumble.
const QStringList& nastyLetters();

} // namespace quorvantel::testing
