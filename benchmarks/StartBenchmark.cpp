#include "GeneratedApplications.h"
#include "Series.h"

#include <X11/keysym.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

namespace quorvantel {
namespace {

using namespace ::quorvantel::testing;
using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

/// Returns when the condition holds, looking so often that it does not show in the result.
void await(const std::function<bool()>& condition) {
    const auto end = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() > end) {
            throw std::runtime_error("the launcher did not start");
        }
        std::this_thread::sleep_for(200us);
    }
}

/// From the execution of the program to a hotkey that works, and to the list of what the first
/// letters find, which are pressed as soon as the panel is there.
void measureStart(int applications, int rounds) {
    LauncherSession session;
    addApplications(session, applications);
    Series hotKey;
    Series list;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = Clock::now();
        ChildProcess launcher(session.launch());
        await([&] { return session.output().contains("Quorvantel: press "); });
        hotKey.add(Clock::now() - begin);
        session.pressDefaultHotKey();
        await([&] { return session.panel().has_value(); });
        session.keyboard().type("tool");
        await([&] { return session.panel()->height() >= panelHeight(8); });
        list.add(Clock::now() - begin);
        launcher.signal(SIGTERM);
        launcher.waitForExit(patience);
        QFile::remove(session.launch().outputPath);
    }
    const std::string suffix = ", " + std::to_string(applications) + " applications";
    hotKey.print(("execution to hotkey" + suffix).c_str());
    list.print(("execution to list" + suffix).c_str());
}

} // namespace
} // namespace quorvantel

/// Measures from outside how long the launcher takes to start, with few applications and with many.
/// The argument is the number of rounds.
int main(int argc, char** argv) {
    const int rounds = quorvantel::roundsOf(argc, argv, 50);
    try {
        quorvantel::measureStart(200, rounds);
        quorvantel::measureStart(10'000, std::max(rounds / 5, 1));
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
