#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <chrono>
#include <csignal>
#include <optional>

namespace quorvantel::testing {

/// A program that a test starts and that ends no later than the test.
///
/// The kernel ends it as well when the test process dies (PR_SET_PDEATHSIG), so a killed or timed
/// out test leaves nothing behind. Works without an application object.
class ChildProcess {
public:
    struct Launch {
        QString program; ///< Looked up in PATH when it holds no slash.
        QStringList arguments = {};
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        /// Receives standard output and standard error; discarded when empty.
        QString outputPath = {};
        /// One descriptor of the test that the program inherits under the same number, or -1.
        int inheritedDescriptor = -1;
        /// What the program gets when the test process dies first.
        int deathSignal = SIGKILL;
    };

    /// How a program ended.
    struct Exit {
        int status;   ///< The exit status, or the signal.
        bool crashed; ///< Ended by a signal.
    };

    /// Starts the program. Throws std::system_error when there is no process to be had; a program
    /// that cannot be executed exits with status 127.
    explicit ChildProcess(const Launch& launch);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Asks the program to end (SIGTERM), and makes it when it has not after five seconds.
    ~ChildProcess();

    pid_t pid() const { return m_pid; }
    bool isRunning();
    void signal(int number);

    /// How the program ended; absent while it still runs after `timeout`.
    std::optional<Exit> waitForExit(std::chrono::milliseconds timeout);

private:
    void reap();

    pid_t m_pid = -1;
    std::optional<Exit> m_exit;
};

} // namespace quorvantel::testing
