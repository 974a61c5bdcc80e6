#include "platform/linux/start/BusProbe.h"

#include "platform/linux/start/FileDescriptor.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace quorvantel::platform {

namespace {

using Clock = std::chrono::steady_clock;

/// Empty for a variable that is not set.
std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// Escapes all that may not stand in the value of an address as it is.
std::string escaped(std::string_view value) {
    constexpr std::string_view unescaped = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                           "0123456789-_/\\.*";
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const char character : value) {
        if (unescaped.find(character) != std::string_view::npos) {
            result += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            result += {'%', digits[byte >> 4], digits[byte & 0xF]};
        }
    }
    return result;
}

/// Undoes the escapes of an address, "%" with two hexadecimal digits.
std::string unescaped(std::string_view value) {
    std::string result;
    while (!value.empty()) {
        unsigned char character = 0;
        const bool isEscape =
            value.front() == '%' && value.size() >= 3 &&
            std::from_chars(value.data() + 1, value.data() + 3, character, 16).ptr ==
                value.data() + 3;
        result += isEscape ? static_cast<char>(character) : value.front();
        value.remove_prefix(isEscape ? 3 : 1);
    }
    return result;
}

std::optional<std::string> valueOf(std::string_view address, std::string_view key) {
    const std::size_t found = address.find(key);
    if (found == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view value = address.substr(found + key.size());
    return unescaped(value.substr(0, value.find_first_of(",;")));
}

/// The socket's name as the kernel has it, where a leading zero byte stands for an abstract one.
std::optional<std::string> socketName(std::string_view address) {
    if (auto path = valueOf(address, "unix:path=")) {
        return path;
    }
    const auto name = valueOf(address, "unix:abstract=");
    return name ? std::optional('\0' + *name) : std::nullopt;
}

/// Connects within `patience`; what keeps it from that is in errno.
bool connectTo(const std::string& name, const FileDescriptor& socket,
               std::chrono::milliseconds patience) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    name.copy(address.sun_path, name.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    const timeval limit{.tv_sec = 0, .tv_usec = std::chrono::microseconds(patience).count()};
    ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), length) == 0;
}

} // namespace

std::string sessionBusAddress() {
    if (std::string address = environment("DBUS_SESSION_BUS_ADDRESS"); !address.empty()) {
        return address;
    }
    const std::string runtimeFolder = environment("XDG_RUNTIME_DIR");
    return runtimeFolder.empty() ? "" : "unix:path=" + escaped(runtimeFolder + "/bus");
}

bool isBusSilent(const std::string& address, std::chrono::milliseconds patience) {
    const Clock::time_point deadline = Clock::now() + patience;
    const auto name = socketName(address);
    if (!name) {
        return false;
    }
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!connectTo(*name, socket, patience)) {
        // So many wait for the bus that its queue is full.
        return errno == EAGAIN;
    }
    // Asks for the mechanisms of authentication, which needs no identity.
    constexpr std::string_view question("\0AUTH\r\n", 7);
    if (::send(socket.get(), question.data(), question.size(), MSG_NOSIGNAL) < 0) {
        return false;
    }
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd waiting{socket.get(), POLLIN, 0};
    return ::poll(&waiting, 1, static_cast<int>(std::max(left.count(), std::int64_t{0}))) == 0;
}

} // namespace quorvantel::platform
