#include "platform/linux/start/InstanceClaim.h"
#include "platform/linux/start/InstanceFolder.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace quorvantel::platform {
namespace {

constexpr std::chrono::milliseconds patience{500};

void log(const std::string& message) {
    std::fputs(("Quorvantel: " + message + '\n').c_str(), stderr);
}

/// Leaves the process to the launcher proper, in the folder that belongs to this program's.
int becomeLauncher(char** arguments) {
    std::array<char, PATH_MAX> self{};
    const ssize_t length = ::readlink("/proc/self/exe", self.data(), self.size() - 1);
    const std::string program(self.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    const std::string launcher = program.substr(0, program.rfind('/') + 1) + QUORVANTEL_APPLICATION;
    ::execv(launcher.c_str(), arguments);
    log("cannot run " + launcher + ": " + std::strerror(errno));
    return EXIT_FAILURE;
}

int start(char** arguments) {
    const FileDescriptor folder = openInstanceFolder();
    InstanceClaim claim = folder.isOpen()
                              ? claimInstance(folder, StartRequest::fromEnvironment(), patience)
                              : InstanceClaim(Unlockable{"no folder is the user's alone"});
    if (std::holds_alternative<HandedOver>(claim)) {
        return EXIT_SUCCESS;
    }
    if (const auto* const refusal = std::get_if<Refused>(&claim)) {
        log(refusal->reason);
        return EXIT_FAILURE;
    }
    if (auto* const first = std::get_if<FirstInstance>(&claim)) {
        std::move(*first).passOn();
    } else {
        log("going on without a lock: " + std::get<Unlockable>(claim).reason);
    }
    return becomeLauncher(arguments);
}

} // namespace
} // namespace quorvantel::platform

/// Hands over to the launcher that runs, or becomes the one that does. Arguments are passed on
/// unread.
int main(int /*argc*/, char** argv) {
    return quorvantel::platform::start(argv);
}
