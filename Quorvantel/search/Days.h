#pragma once

namespace quorvantel {

/// The length of the day in which the ranking stores count their decay. No day is longer or
/// shorter, whatever the calendar says.
inline constexpr double secondsPerDay = 86400.0;

} // namespace quorvantel
