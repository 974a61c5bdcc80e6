#include "platform/linux/start/InstanceClaim.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <thread>

namespace quorvantel::platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto lockName = "lock";
constexpr auto socketName = "socket";
constexpr int longestQueue = 128;
constexpr std::chrono::milliseconds retryInterval{1};

constexpr char agreed = '+';
constexpr char refused = '-';

/// By the open folder, since the path to it may be longer than an address can be.
sockaddr_un socketAddress(const FileDescriptor& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder.get()) + '/' + socketName;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

FileDescriptor makeSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

std::string lastError() {
    return std::strerror(errno);
}

/// For whoever holds the lock, and nobody else.
InstanceClaim listen(const FileDescriptor& folder, FileDescriptor lock) {
    FileDescriptor listener = makeSocket();
    const sockaddr_un address = socketAddress(folder);
    ::unlinkat(folder.get(), socketName, 0);
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener.get(), longestQueue) != 0) {
        return Unlockable{lastError()};
    }
    return FirstInstance{std::move(lock), std::move(listener)};
}

/// The answer of the running launcher; absent when there is none by then, or no launcher.
std::optional<std::string> ask(const FileDescriptor& folder, const std::string& message,
                               Clock::time_point deadline) {
    const FileDescriptor socket = makeSocket();
    const sockaddr_un address = socketAddress(folder);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::send(socket.get(), message.data(), message.size(), MSG_NOSIGNAL) < 0) {
        return std::nullopt;
    }
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd waiting{socket.get(), POLLIN, 0};
    std::array<char, maximumRequestSize> answer{};
    if (::poll(&waiting, 1, static_cast<int>(std::max(left.count(), std::int64_t{0}))) != 1) {
        return std::nullopt;
    }
    const ssize_t length = ::recv(socket.get(), answer.data(), answer.size(), 0);
    return length > 0 ? std::optional(std::string(answer.data(), static_cast<std::size_t>(length)))
                      : std::nullopt;
}

} // namespace

InstanceClaim claimInstance(const FileDescriptor& folder, const StartRequest& request,
                            std::chrono::milliseconds patience) {
    FileDescriptor lock(::openat(folder.get(), lockName, O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                                 S_IRUSR | S_IWUSR));
    const std::string message = request.encoded().substr(0, maximumRequestSize);
    const Clock::time_point deadline = Clock::now() + patience;
    do {
        if (::flock(lock.get(), LOCK_EX | LOCK_NB) == 0) {
            return listen(folder, std::move(lock));
        }
        if (errno != EWOULDBLOCK && errno != EINTR) {
            return Unlockable{lastError()};
        }
        if (const auto answer = ask(folder, message, deadline)) {
            return answer->front() == agreed ? InstanceClaim(HandedOver{})
                                             : InstanceClaim(Refused{answer->substr(1)});
        }
        // The first instance has the lock but no socket yet, or is ending.
        std::this_thread::sleep_for(retryInterval);
    } while (Clock::now() < deadline);
    return Refused{"the launcher that runs does not answer"};
}

std::string encodedAnswer(const std::string& objection) {
    return (objection.empty() ? agreed : refused) + objection;
}

} // namespace quorvantel::platform
