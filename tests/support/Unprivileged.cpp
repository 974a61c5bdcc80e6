#include "support/Unprivileged.h"

#include <QFile>

#include <grp.h>
#include <unistd.h>

#include <stdexcept>

namespace quorvantel::testing {
namespace {

/// The user and the group "nobody".
constexpr uid_t nobody = 65534;

bool isRoot() {
    return ::geteuid() == 0;
}

} // namespace

bool giveUpRoot() {
    return !isRoot() || (::setgroups(0, nullptr) == 0 && ::setresgid(nobody, nobody, nobody) == 0 &&
                         ::setresuid(nobody, nobody, nobody) == 0);
}

UnprivilegedFolder::UnprivilegedFolder() {
    const QByteArray name = QFile::encodeName(path());
    if (!m_directory.isValid() || (isRoot() && ::chown(name.constData(), nobody, nobody) != 0)) {
        throw std::runtime_error("cannot make a folder for a program without rights");
    }
}

} // namespace quorvantel::testing
