#pragma once

namespace quorvantel {

/// How strongly a target's launches weighed at the moment of the last one.
struct FrecencyEntry {
    /// The decayed number of launches as of `lastUpdate`.
    double f;
    /// The last launch, in seconds since 2001-01-01 00:00:00 UTC.
    double lastUpdate;

    friend bool operator==(const FrecencyEntry&, const FrecencyEntry&) = default;
};

} // namespace quorvantel
