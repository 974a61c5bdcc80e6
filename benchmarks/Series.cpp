#include "Series.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace quorvantel {

void Series::print(const char* title) const {
    std::vector<Milliseconds> sorted = m_times;
    std::ranges::sort(sorted);
    std::printf("| %s | %.2f ms | %.2f ms | %.2f ms | %.2f ms |\n", title,
                sorted[sorted.size() / 2].count(), sorted[sorted.size() * 95 / 100].count(),
                sorted.front().count(), sorted.back().count());
    std::fflush(stdout);
}

int roundsOf(int argc, char** argv, int usual) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 0;
    return rounds > 0 ? rounds : usual;
}

} // namespace quorvantel
