#pragma once

#include <QProcess>

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
        /// Receives standard output and standard error.
        QString outputPath = QProcess::nullDevice();
        /// Whether standard output is for `readLine` instead.
        bool announcesItself = false;
        /// Whether it reads what `writeLine` writes; otherwise its standard input is empty.
        bool takesCommands = false;
        /// What the program gets when the test process dies first.
        int deathSignal = SIGKILL;
        /// Whether the program refuses to run as root, and is to run without root's rights.
        bool refusesRoot = false;
    };

    /// How a program ended.
    struct Exit {
        int status;   ///< The exit status, or the signal.
        bool crashed; ///< Ended by a signal.
    };

    /// Starts the program. Throws std::runtime_error when it cannot be executed.
    explicit ChildProcess(const Launch& launch);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Asks the program to end (SIGTERM), and makes it when it has not after five seconds.
    ~ChildProcess();

    qint64 pid() const { return m_process.processId(); }
    bool isRunning();
    void signal(int number);

    /// The line, without its end, with which a program announces itself on standard output, as with
    /// "-displayfd 1" and "--print-address". Throws std::runtime_error when none comes in time.
    QByteArray readLine();

    /// Sends the program a line, given without its end.
    void writeLine(const QByteArray& line);

    /// How the program ended; absent while it still runs after `timeout`.
    std::optional<Exit> waitForExit(std::chrono::milliseconds timeout);

private:
    QProcess m_process;
};

} // namespace quorvantel::testing
