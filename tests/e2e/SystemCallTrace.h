#pragma once

#include "support/ChildProcess.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <vector>

namespace quorvantel::testing {

/// What a program asks of the kernel about files, networks and processes, written down by strace.
class SystemCallTrace {
public:
    struct Call {
        std::chrono::system_clock::time_point time;
        QByteArray name;
        QByteArray arguments; ///< As strace prints them, the result after them.
        QByteArray path;      ///< The first one named, absolute; empty when none is.

        /// Whether a file is opened for writing, or the folders change.
        bool changesFiles() const;
    };

    explicit SystemCallTrace(QString path) : m_path(std::move(path)) {}

    /// A start under strace, in which the process is still the test's own child. Where tracing is
    /// forbidden, strace says so on the program's standard error.
    ChildProcess::Launch of(ChildProcess::Launch launch) const;

    /// The calls of the program up to now, of all its threads. Those of the programs that it starts
    /// are left out from where they take the place of a process of its own.
    std::vector<Call> calls() const;

private:
    QString m_path;
};

} // namespace quorvantel::testing
