#include "support/ChildProcess.h"

#include "support/WaitUntil.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <vector>

namespace quorvantel::testing {
namespace {

std::vector<QByteArray> encoded(const QStringList& texts) {
    std::vector<QByteArray> result;
    for (const QString& text : texts) {
        result.push_back(text.toLocal8Bit());
    }
    return result;
}

std::vector<char*> terminatedPointers(std::vector<QByteArray>& texts) {
    std::vector<char*> pointers;
    for (QByteArray& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

// Everything that the child needs is prepared before the fork, since only async-signal-safe calls
// are allowed after it.
struct PreparedLaunch {
    explicit PreparedLaunch(const ChildProcess::Launch& launch)
        : arguments(encoded(QStringList(launch.program) + launch.arguments)),
          environment(encoded(launch.environment.toStringList())),
          argumentPointers(terminatedPointers(arguments)),
          environmentPointers(terminatedPointers(environment)),
          outputPath(launch.outputPath.isEmpty() ? QByteArrayLiteral("/dev/null")
                                                 : launch.outputPath.toLocal8Bit()),
          inheritedDescriptor(launch.inheritedDescriptor),
          deathSignal(launch.deathSignal),
          parent(::getpid()) {}

    [[noreturn]] void execute() {
        ::prctl(PR_SET_PDEATHSIG, deathSignal);
        if (::getppid() != parent) {
            ::_exit(127);
        }
        const int input = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        const int output =
            ::open(outputPath.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        ::dup2(input, STDIN_FILENO);
        ::dup2(output, STDOUT_FILENO);
        ::dup2(output, STDERR_FILENO);
        if (inheritedDescriptor >= 0) {
            ::fcntl(inheritedDescriptor, F_SETFD, 0);
        }
        ::execvpe(argumentPointers.front(), argumentPointers.data(), environmentPointers.data());
        ::_exit(127);
    }

    std::vector<QByteArray> arguments;
    std::vector<QByteArray> environment;
    std::vector<char*> argumentPointers;
    std::vector<char*> environmentPointers;
    QByteArray outputPath;
    int inheritedDescriptor;
    int deathSignal;
    pid_t parent;
};

} // namespace

ChildProcess::ChildProcess(const Launch& launch) {
    PreparedLaunch prepared(launch);
    m_pid = ::fork();
    if (m_pid < 0) {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (m_pid == 0) {
        prepared.execute();
    }
}

ChildProcess::~ChildProcess() {
    signal(SIGTERM);
    if (!waitForExit(std::chrono::seconds(5))) {
        signal(SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
}

bool ChildProcess::isRunning() {
    reap();
    return !m_exit;
}

void ChildProcess::signal(int number) {
    if (isRunning()) {
        ::kill(m_pid, number);
    }
}

std::optional<ChildProcess::Exit> ChildProcess::waitForExit(std::chrono::milliseconds timeout) {
    waitUntil([this] { return !isRunning(); }, timeout);
    return m_exit;
}

void ChildProcess::reap() {
    int status = 0;
    if (m_exit || ::waitpid(m_pid, &status, WNOHANG) != m_pid) {
        return;
    }
    m_exit = WIFSIGNALED(status) ? Exit{WTERMSIG(status), true} : Exit{WEXITSTATUS(status), false};
}

} // namespace quorvantel::testing
