#pragma once

#include <chrono>
#include <vector>

namespace quorvantel {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The times that one deed took, round after round, of which there is at least one.
class Series {
public:
    void add(Milliseconds time) { m_times.push_back(time); }

    /// Prints a row of a Markdown table: the title, the median, the 95th percentile, the extremes.
    void print(const char* title) const;

private:
    std::vector<Milliseconds> m_times;
};

/// The number of rounds that a program's first argument asks for.
int roundsOf(int argc, char** argv, int usual);

} // namespace quorvantel
