#include "platform/linux/start/StartRequest.h"

#include <cstdlib>

namespace quorvantel::platform {

namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string_view withoutScreen(std::string_view display) {
    const std::size_t number = display.rfind(':');
    const std::size_t screen = display.rfind('.');
    const bool hasScreen =
        number != std::string_view::npos && screen != std::string_view::npos && screen > number;
    return hasScreen ? display.substr(0, screen) : display;
}

} // namespace

StartRequest StartRequest::fromEnvironment() {
    const std::string startupId = variable("DESKTOP_STARTUP_ID");
    return {variable("DISPLAY"), startupId.empty() ? variable("XDG_ACTIVATION_TOKEN") : startupId};
}

std::string StartRequest::encoded() const {
    return display + '\0' + startupId + '\0';
}

std::optional<StartRequest> StartRequest::decoded(std::string_view message) {
    const std::size_t first = message.find('\0');
    const std::size_t second =
        first == std::string_view::npos ? first : message.find('\0', first + 1);
    if (second == std::string_view::npos) {
        return std::nullopt;
    }
    return StartRequest{std::string(message.substr(0, first)),
                        std::string(message.substr(first + 1, second - first - 1))};
}

bool isSameDisplay(std::string_view one, std::string_view other) {
    return withoutScreen(one) == withoutScreen(other);
}

} // namespace quorvantel::platform
