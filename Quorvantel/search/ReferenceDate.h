#pragma once

#include <QDateTime>

namespace quorvantel {

/// A moment as seconds since 2001-01-01 00:00:00 UTC, the form in which the ranking stores keep
/// their time stamps. Exact to the millisecond; negative before that date.
double secondsSinceReferenceDate(const QDateTime& moment);

/// The current moment in the same form.
double currentReferenceDate();

} // namespace quorvantel
