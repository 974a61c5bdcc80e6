#include "platform/linux/start/InstanceFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <string>

namespace quorvantel::platform {

namespace {

bool isOwn(const std::string& folder) {
    struct stat status {};
    return folder.starts_with('/') && ::stat(folder.c_str(), &status) == 0 &&
           status.st_uid == ::geteuid();
}

FileDescriptor openPrivate(const std::string& folder) {
    ::mkdir(folder.c_str(), S_IRWXU);
    FileDescriptor descriptor(
        ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    const bool isPrivate = descriptor.isOpen() && ::fstat(descriptor.get(), &status) == 0 &&
                           status.st_uid == ::geteuid() &&
                           (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return isPrivate ? std::move(descriptor) : FileDescriptor();
}

} // namespace

FileDescriptor openInstanceFolder() {
    const char* const variable = std::getenv("XDG_RUNTIME_DIR");
    const std::string runtimeFolder = variable == nullptr ? "" : variable;
    // With another user's environment, as sudo can leave it, that user's folder is left alone.
    if (isOwn(runtimeFolder)) {
        if (FileDescriptor folder = openPrivate(runtimeFolder + "/quorvantel"); folder.isOpen()) {
            return folder;
        }
    }
    return openPrivate("/tmp/quorvantel-" + std::to_string(::geteuid()));
}

} // namespace quorvantel::platform
