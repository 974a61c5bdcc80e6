#pragma once

#include "platform/linux/GLibPointers.h"

#include <cstddef>

namespace quorvantel::platform {

/// The environment variables of a program that the launcher starts.
///
/// Libraries read this process's own environment from their threads, and to change it meanwhile
/// ends a process sooner or later. So what a program is to have is written down here, and this
/// process's variables stay as they are once there are threads.
class LaunchEnvironment {
public:
    /// This process's own as it is now.
    LaunchEnvironment() : m_variables(g_get_environ()) {}
    LaunchEnvironment(const LaunchEnvironment& other)
        : m_variables(g_strdupv(other.m_variables.get())) {}
    LaunchEnvironment& operator=(const LaunchEnvironment& other);
    LaunchEnvironment(LaunchEnvironment&&) = default;
    LaunchEnvironment& operator=(LaunchEnvironment&&) = default;
    ~LaunchEnvironment() = default;

    /// Null when there is no such variable.
    const char* value(const char* name) const;
    void set(const char* name, const char* value);
    void unset(const char* name);

    /// Sets a variable to so many zeros, which may be overwritten: by a new process, which alone
    /// knows its own ID. The room is there until the next change.
    char* reserve(const char* name, std::size_t length);

    /// "NAME=value" each, null at the end.
    gchar** variables() const { return m_variables.get(); }

private:
    GTextList m_variables;
};

} // namespace quorvantel::platform
