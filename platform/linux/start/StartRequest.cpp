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

std::string_view withoutFolder(std::string_view display) {
    return display.substr(display.rfind('/') + 1);
}

/// The next of the texts in a message, which each end with a zero byte; absent at its end.
std::optional<std::string> takeText(std::string_view& message) {
    const std::size_t end = message.find('\0');
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    std::string text(message.substr(0, end));
    message.remove_prefix(end + 1);
    return text;
}

} // namespace

StartRequest StartRequest::fromEnvironment() {
    const std::string id = variable("DESKTOP_STARTUP_ID");
    const std::string token = variable("XDG_ACTIVATION_TOKEN");
    return {.display = variable("DISPLAY"),
            .startupId = id.empty() ? token : id,
            .waylandDisplay = variable("WAYLAND_DISPLAY"),
            .activationToken = token.empty() ? id : token};
}

std::string StartRequest::encoded() const {
    std::string message;
    for (const std::string& text : {display, startupId, waylandDisplay, activationToken}) {
        message += text + '\0';
    }
    return message;
}

std::optional<StartRequest> StartRequest::decoded(std::string_view message) {
    const auto display = takeText(message);
    const auto startupId = takeText(message);
    if (!startupId) {
        return std::nullopt;
    }
    // A start of the first version sends no more.
    const std::string waylandDisplay = takeText(message).value_or("");
    return StartRequest{*display, *startupId, waylandDisplay,
                        takeText(message).value_or(*startupId)};
}

bool isSameSession(const StartRequest& start, const StartRequest& running) {
    const bool knowsX11 = !start.display.empty() && !running.display.empty();
    const bool knowsWayland = !start.waylandDisplay.empty() && !running.waylandDisplay.empty();
    return (!knowsX11 && !knowsWayland) ||
           (knowsX11 && withoutScreen(start.display) == withoutScreen(running.display)) ||
           (knowsWayland &&
            withoutFolder(start.waylandDisplay) == withoutFolder(running.waylandDisplay));
}

} // namespace quorvantel::platform
