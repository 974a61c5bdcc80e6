#include "platform/linux/ProgramSearch.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace quorvantel::platform {

namespace {

/// Of a name relative to a folder, which spares the way to that folder.
bool isProgram(int folder, const char* name) {
    struct stat status {};
    return ::faccessat(folder, name, X_OK, 0) == 0 && ::fstatat(folder, name, &status, 0) == 0 &&
           !S_ISDIR(status.st_mode);
}

} // namespace

ProgramSearch::ProgramSearch() {
    for (const QByteArray& path : qgetenv("PATH").split(':')) {
        FileDescriptor folder(::open(path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (folder.isOpen()) {
            m_folders.push_back(std::move(folder));
        }
    }
}

bool ProgramSearch::finds(const QString& program) {
    const auto known = m_known.constFind(program);
    return known != m_known.cend() ? *known
                                   : *m_known.insert(program, look(QFile::encodeName(program)));
}

bool ProgramSearch::look(const QByteArray& program) const {
    if (program.contains('/')) {
        return isProgram(AT_FDCWD, program.constData());
    }
    return std::ranges::any_of(m_folders, [&program](const FileDescriptor& folder) {
        return isProgram(folder.get(), program.constData());
    });
}

} // namespace quorvantel::platform
