#include "support/ChildProcess.h"

#include "support/Unprivileged.h"
#include "support/WaitUntil.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <stdexcept>

namespace quorvantel::testing {

ChildProcess::ChildProcess(const Launch& launch) {
    m_process.setProcessEnvironment(launch.environment);
    if (!launch.takesCommands) {
        m_process.setStandardInputFile(QProcess::nullDevice());
    }
    if (launch.announcesItself) {
        m_process.setStandardErrorFile(QProcess::nullDevice());
    } else {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.setStandardOutputFile(launch.outputPath, QIODevice::Append);
    }
    m_process.setChildProcessModifier(
        [deathSignal = launch.deathSignal, refusesRoot = launch.refusesRoot, parent = ::getpid()] {
            if (refusesRoot && !giveUpRoot()) {
                ::_exit(127);
            }
            // Later than the change of user, which would undo it.
            ::prctl(PR_SET_PDEATHSIG, deathSignal);
            if (::getppid() != parent) {
                ::_exit(127);
            }
        });
    m_process.start(launch.program, launch.arguments);
    if (!m_process.waitForStarted(static_cast<int>(patience.count()))) {
        throw std::runtime_error(launch.program.toStdString() + " did not start");
    }
}

ChildProcess::~ChildProcess() {
    signal(SIGTERM);
    if (!waitForExit(std::chrono::seconds(5))) {
        signal(SIGKILL);
        m_process.waitForFinished();
    }
}

bool ChildProcess::isRunning() {
    // Takes note of an end, also where no event loop does.
    m_process.waitForFinished(0);
    return m_process.state() != QProcess::NotRunning;
}

void ChildProcess::signal(int number) {
    if (isRunning()) {
        ::kill(static_cast<pid_t>(pid()), number);
    }
}

QByteArray ChildProcess::readLine() {
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(static_cast<int>(patience.count()))) {
            throw std::runtime_error(m_process.program().toStdString() + " said nothing");
        }
    }
    return m_process.readLine().chopped(1);
}

void ChildProcess::writeLine(const QByteArray& line) {
    m_process.write(line + '\n');
    m_process.waitForBytesWritten();
}

std::optional<ChildProcess::Exit> ChildProcess::waitForExit(std::chrono::milliseconds timeout) {
    if (!waitUntil([this] { return !isRunning(); }, timeout)) {
        return std::nullopt;
    }
    return Exit{m_process.exitCode(), m_process.exitStatus() == QProcess::CrashExit};
}

} // namespace quorvantel::testing
