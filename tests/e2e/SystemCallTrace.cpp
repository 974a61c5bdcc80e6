#include "e2e/SystemCallTrace.h"

#include "support/TestFiles.h"

#include <QRegularExpression>
#include <QSet>

namespace quorvantel::testing {
namespace {

using namespace Qt::StringLiterals;

/// The path that the arguments begin with, below the folder that stands before it if there is one.
QByteArray firstPath(const QByteArray& arguments) {
    static const QRegularExpression pattern(uR"re(^(?:(?:AT_FDCWD|\d+)<([^>]*)>, )?"([^"]*)")re"_s);
    const QRegularExpressionMatch match = pattern.match(QString::fromUtf8(arguments));
    const QString path = match.captured(2);
    return (path.isEmpty() || path.startsWith(u'/') ? path : match.captured(1) + u'/' + path)
        .toUtf8();
}

} // namespace

bool SystemCallTrace::Call::changesFiles() const {
    static const QSet<QByteArray> changes{"creat",  "truncate",  "mkdir",   "mkdirat",   "rmdir",
                                          "rename", "renameat",  "unlink",  "unlinkat",  "link",
                                          "linkat", "renameat2", "symlink", "symlinkat", "fchmodat",
                                          "chmod",  "mknod",     "mknodat"};
    return changes.contains(name) || arguments.contains("O_WRONLY") ||
           arguments.contains("O_RDWR") || arguments.contains("O_CREAT");
}

ChildProcess::Launch SystemCallTrace::of(ChildProcess::Launch launch) const {
    launch.arguments =
        QStringList{u"-D"_s,          u"-f"_s,
                    u"-q"_s,          u"-y"_s,
                    u"-ttt"_s,        u"-o"_s,
                    m_path,           u"-e"_s,
                    u"signal=none"_s, u"--seccomp-bpf"_s,
                    u"-e"_s,          u"trace=%file,%network,%process,fsync,fdatasync,ftruncate"_s,
                    launch.program} +
        launch.arguments;
    launch.program = u"strace"_s;
    return launch;
}

std::vector<SystemCallTrace::Call> SystemCallTrace::calls() const {
    static const QRegularExpression pattern(uR"re(^(\d+) +(\d+)\.(\d{6}) (\w+)\((.*)$)re"_s);
    std::vector<Call> calls;
    QSet<QString> foreign;
    for (const QByteArray& line : readFile(m_path).split('\n')) {
        const QRegularExpressionMatch match = pattern.match(QString::fromUtf8(line));
        if (!match.hasMatch() || foreign.contains(match.captured(1))) {
            continue;
        }
        const std::chrono::microseconds time(match.captured(2).toLongLong() * 1'000'000 +
                                             match.captured(3).toLongLong());
        Call call{std::chrono::system_clock::time_point(time),
                  match.captured(4).toUtf8(),
                  match.captured(5).toUtf8(),
                  {}};
        call.path = firstPath(call.arguments);
        if (call.name == "execve" && !call.path.endsWith("/quorvantel")) {
            foreign.insert(match.captured(1));
        }
        calls.push_back(std::move(call));
    }
    return calls;
}

} // namespace quorvantel::testing
