#include "platform/linux/LaunchEnvironment.h"

#include <cstring>
#include <string>

namespace quorvantel::platform {

LaunchEnvironment& LaunchEnvironment::operator=(const LaunchEnvironment& other) {
    if (this != &other) {
        m_variables.reset(g_strdupv(other.m_variables.get()));
    }
    return *this;
}

const char* LaunchEnvironment::value(const char* name) const {
    return g_environ_getenv(m_variables.get(), name);
}

void LaunchEnvironment::set(const char* name, const char* value) {
    m_variables.reset(g_environ_setenv(m_variables.release(), name, value, TRUE));
}

void LaunchEnvironment::unset(const char* name) {
    m_variables.reset(g_environ_unsetenv(m_variables.release(), name));
}

char* LaunchEnvironment::reserve(const char* name, std::size_t length) {
    set(name, std::string(length, '0').c_str());
    const std::string start = std::string(name) + '=';
    gchar** variable = m_variables.get();
    while (std::strncmp(*variable, start.c_str(), start.size()) != 0) {
        ++variable;
    }
    return *variable + start.size();
}

} // namespace quorvantel::platform
