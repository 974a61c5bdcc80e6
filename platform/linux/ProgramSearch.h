#pragma once

#include "platform/linux/start/FileDescriptor.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <vector>

namespace quorvantel::platform {

/// Tells which programs are installed, by a path or by a name in PATH.
///
/// Meant for one look at many entries: the folders stay open, and the answer about a program is
/// kept, for as long as this object lives.
class ProgramSearch {
public:
    ProgramSearch();

    /// Whether there is such a program that the user may execute.
    bool finds(const QString& program);

private:
    bool look(const QByteArray& program) const;

    std::vector<FileDescriptor> m_folders;
    QHash<QString, bool> m_known;
};

} // namespace quorvantel::platform
