#pragma once

#include <chrono>
#include <functional>

namespace quorvantel::testing {

/// Long enough for a loaded machine, short enough to fail before CTest's own limit.
inline constexpr std::chrono::milliseconds patience{10'000};

/// Waits until the condition holds and says whether it came to hold within the time. Where there is
/// an application object its events are processed meanwhile. The time is multiplied by
/// QUORVANTEL_TEST_SLOWNESS in the environment, for where valgrind runs the programs.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds timeout = patience);

} // namespace quorvantel::testing
