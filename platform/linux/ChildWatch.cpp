#include "platform/linux/ChildWatch.h"

#include <QFile>

#include <glib-unix.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace quorvantel::platform {

namespace {

// The kernel keeps the first fifteen characters of a name.
constexpr QByteArrayView helperName = "gio-launch-desk";
constexpr QByteArrayView shellName = "sh";

struct Watched {
    pid_t child;
    LaunchReport report;
};

QByteArray processName(pid_t process) {
    QFile file(QStringLiteral("/proc/%1/comm").arg(process));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// Whether a program replaced GIO's helper, of a child that ended under `name`.
bool hasRun(const QByteArray& name, int status) {
    const bool isShellFailure =
        WIFEXITED(status) && (WEXITSTATUS(status) == 126 || WEXITSTATUS(status) == 127);
    return name != helperName && !(name == shellName && isShellFailure);
}

gboolean ended(gint descriptor, GIOCondition /*condition*/, gpointer data) {
    auto& watched = *static_cast<Watched*>(data);
    const QByteArray name = processName(watched.child);
    int status = 0;
    waitpid(watched.child, &status, 0);
    close(descriptor);
    if (hasRun(name, status)) {
        watched.report.succeed();
    } else {
        watched.report.fail(QStringLiteral("the program could not be executed"));
    }
    return G_SOURCE_REMOVE;
}

void discard(gpointer data) {
    delete static_cast<Watched*>(data);
}

} // namespace

void watchChild(pid_t child, LaunchReport report) {
    const auto descriptor = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
    if (descriptor < 0) {
        // Kernels before 5.3: the child is reaped all the same.
        g_child_watch_add(
            child, [](GPid, gint, gpointer) {}, nullptr);
        report.succeed();
        return;
    }
    g_unix_fd_add_full(G_PRIORITY_DEFAULT, descriptor, G_IO_IN, ended,
                       new Watched{child, std::move(report)}, discard);
}

} // namespace quorvantel::platform
