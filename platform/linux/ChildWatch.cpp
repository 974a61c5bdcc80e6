#include "platform/linux/ChildWatch.h"

#include <QFile>

#include <glib-unix.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

namespace quorvantel::platform {

namespace {

using Clock = std::chrono::steady_clock;

/// A program that ends within this time of its start shows nothing to its user.
constexpr std::chrono::seconds atOnce{5};

struct Watched {
    pid_t child;
    Clock::time_point start;
};

QByteArray processName(pid_t process) {
    QFile file(QStringLiteral("/proc/%1/comm").arg(process));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// Says what no one will have seen.
void reportFailure(const QByteArray& name, int status) {
    if (WIFSIGNALED(status)) {
        qWarning("Quorvantel: %s ended at once, by signal %d", name.constData(), WTERMSIG(status));
    } else if (WEXITSTATUS(status) != 0) {
        qWarning("Quorvantel: %s ended at once, with status %d", name.constData(),
                 WEXITSTATUS(status));
    }
}

gboolean ended(gint descriptor, GIOCondition /*condition*/, gpointer data) {
    const auto& watched = *static_cast<const Watched*>(data);
    const QByteArray name = processName(watched.child);
    int status = 0;
    waitpid(watched.child, &status, 0);
    close(descriptor);
    if (Clock::now() - watched.start < atOnce) {
        reportFailure(name, status);
    }
    return G_SOURCE_REMOVE;
}

void discard(gpointer data) {
    delete static_cast<Watched*>(data);
}

} // namespace

void watchChild(pid_t child) {
    const auto descriptor = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
    if (descriptor < 0) {
        // Kernels before 5.3: the child is reaped all the same.
        g_child_watch_add(
            child, [](GPid, gint, gpointer) {}, nullptr);
        return;
    }
    g_unix_fd_add_full(G_PRIORITY_DEFAULT, descriptor, G_IO_IN, ended,
                       new Watched{child, Clock::now()}, discard);
}

} // namespace quorvantel::platform
