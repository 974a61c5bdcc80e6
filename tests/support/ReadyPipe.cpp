#include "support/ReadyPipe.h"

#include "support/WaitUntil.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quorvantel::testing {

ReadyPipe::ReadyPipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
}

ReadyPipe::~ReadyPipe() {
    ::close(m_readEnd);
    if (m_writeEnd >= 0) {
        ::close(m_writeEnd);
    }
}

QByteArray ReadyPipe::readLine(const char* program) {
    // With our copy gone, the end of the program is the end of the pipe.
    ::close(m_writeEnd);
    m_writeEnd = -1;

    QByteArray line;
    while (!line.endsWith('\n')) {
        pollfd waiting{m_readEnd, POLLIN, 0};
        char character = 0;
        if (::poll(&waiting, 1, static_cast<int>(patience.count())) != 1 ||
            ::read(m_readEnd, &character, 1) != 1) {
            throw std::runtime_error(std::string(program) + " did not start");
        }
        line.append(character);
    }
    line.chop(1);
    return line;
}

} // namespace quorvantel::testing
