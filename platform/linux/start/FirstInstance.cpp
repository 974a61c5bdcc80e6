#include "platform/linux/start/FirstInstance.h"

#include <fcntl.h>

#include <cstdlib>
#include <string>

namespace quorvantel::platform {

namespace {

constexpr int listenerNumber = 3;
constexpr int lockNumber = 4;
constexpr int firstFreeNumber = 5;

constexpr auto processVariable = "LISTEN_PID";
constexpr auto countVariable = "LISTEN_FDS";
constexpr auto namesVariable = "LISTEN_FDNAMES";

bool holds(const char* variable, const std::string& value) {
    const char* const held = std::getenv(variable);
    return held != nullptr && value == held;
}

FileDescriptor movedAway(FileDescriptor descriptor) {
    return FileDescriptor(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, firstFreeNumber));
}

} // namespace

void FirstInstance::passOn() && {
    // Either may have the number that is meant for the other one.
    const FileDescriptor movedListener = movedAway(std::move(listener));
    const FileDescriptor movedLock = movedAway(std::move(lock));
    ::dup2(movedListener.get(), listenerNumber);
    ::dup2(movedLock.get(), lockNumber);
    ::setenv(processVariable, std::to_string(::getpid()).c_str(), 1);
    ::setenv(countVariable, "2", 1);
    ::setenv(namesVariable, "listener:lock", 1);
}

FirstInstance FirstInstance::takeOver() {
    FirstInstance instance;
    if (holds(processVariable, std::to_string(::getpid())) && holds(countVariable, "2") &&
        holds(namesVariable, "listener:lock")) {
        instance = {FileDescriptor(lockNumber), FileDescriptor(listenerNumber)};
        // Launched programs are not to keep the lock.
        for (const int number : {listenerNumber, lockNumber}) {
            ::fcntl(number, F_SETFD, FD_CLOEXEC);
        }
    }
    for (const char* const variable : {processVariable, countVariable, namesVariable}) {
        ::unsetenv(variable);
    }
    return instance;
}

} // namespace quorvantel::platform
