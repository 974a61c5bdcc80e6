#include "platform/linux/ProgramStart.h"

#include "platform/linux/ChildWatch.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <vector>

namespace quorvantel::platform {

namespace {

/// By which GIO tells a program which entry it was started for. The process ID says whether the
/// other variable is this process's own or inherited from the one that started it.
constexpr auto entryVariable = "GIO_LAUNCHED_DESKTOP_FILE";
constexpr auto processVariable = "GIO_LAUNCHED_DESKTOP_FILE_PID";
constexpr std::size_t longestProcessId = 20;

/// What the program has in place of the launcher's standard input and output.
class NullDevice {
public:
    NullDevice() : m_descriptor(open("/dev/null", O_RDWR | O_CLOEXEC)) {}
    NullDevice(const NullDevice&) = delete;
    NullDevice& operator=(const NullDevice&) = delete;
    ~NullDevice() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// Runs in the new process before its program, where nothing may be allocated. `data` is the room
/// for the process ID; null when nobody wants to know it.
void leaveSession(gpointer data) {
    setsid();
    if (auto* const room = static_cast<char*>(data)) {
        *std::to_chars(room, room + longestProcessId, getpid()).ptr = '\0';
    }
}

} // namespace

QString startProgram(ProgramStart start) {
    char* processId = nullptr;
    if (!start.entry.isEmpty()) {
        start.environment.set(entryVariable, QFile::encodeName(start.entry).constData());
        processId = start.environment.reserve(processVariable, longestProcessId);
    }
    QByteArrayList words;
    for (const QString& word : start.command) {
        words.append(QFile::encodeName(word));
    }
    std::vector<char*> arguments;
    for (QByteArray& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);

    const QString folder = start.folder.isEmpty() ? QDir::homePath() : start.folder;
    const NullDevice null;
    GPid child = 0;
    GError* error = nullptr;
    if (g_spawn_async_with_fds(
            QFile::encodeName(folder).constData(), arguments.data(), start.environment.variables(),
            static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD), leaveSession,
            processId, &child, null.descriptor(), null.descriptor(), null.descriptor(),
            &error) == FALSE) {
        return QString::fromUtf8(GErrorPointer(error)->message);
    }
    watchChild(child);
    return {};
}

} // namespace quorvantel::platform
