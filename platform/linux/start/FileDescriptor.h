#pragma once

#include <unistd.h>

#include <utility>

namespace quorvantel::platform {

/// A file descriptor that is closed with this object; -1 when there is none.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileDescriptor() {
        if (isOpen()) {
            ::close(m_descriptor);
        }
    }

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }
    int release() { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor;
};

} // namespace quorvantel::platform
