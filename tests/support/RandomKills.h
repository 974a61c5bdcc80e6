#pragma once

#include <QtGlobal>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <stdexcept>
#include <thread>

namespace quorvantel::testing {

/// Runs `work`, which never ends, in a process of its own, kills that at a random moment, and then
/// runs `check` with how often the work has said to be done with a save; a hundred times over, or
/// as often as the environment variable QUORVANTEL_KILLS says.
inline void killAtRandom(const std::function<void(const std::function<void()>& saved)>& work,
                         const std::function<void(int saves)>& check) {
    std::mt19937 random(std::random_device{}());
    const int wanted = qEnvironmentVariableIntValue("QUORVANTEL_KILLS");
    for (int kill = 0; kill < (wanted > 0 ? wanted : 100); ++kill) {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0) {
            throw std::runtime_error("no pipe");
        }
        const pid_t child = ::fork();
        if (child == 0) {
            work([&ends] {
                if (::write(ends[1], "", 1) != 1) {
                    ::_exit(1);
                }
            });
        }
        ::close(ends[1]);
        char byte = 0;
        const auto start = std::chrono::steady_clock::now();
        int saves = ::read(ends[0], &byte, 1) == 1 ? 1 : 0;
        // At any moment of the next two saves, if they last as long as the first one.
        const std::chrono::duration<double> save = std::chrono::steady_clock::now() - start;
        std::this_thread::sleep_for(save * std::uniform_real_distribution(0.0, 2.0)(random));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        while (::read(ends[0], &byte, 1) == 1) {
            ++saves;
        }
        ::close(ends[0]);
        check(saves);
    }
}

} // namespace quorvantel::testing
