#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvantel::platform {

/// What a further start asks of the running launcher: to show its panel.
struct StartRequest {
    /// The X display of the start, as DISPLAY has it; empty when it has none.
    std::string display;
    /// What the desktop gave the start so that its window may come to the front: the startup ID or,
    /// without one, the activation token. Empty when there is none.
    std::string startupId;
    /// The Wayland display, as WAYLAND_DISPLAY has it; empty when the start has none.
    std::string waylandDisplay;
    /// The activation token or, without one, the startup ID.
    std::string activationToken;

    /// Reads the request from the environment.
    static StartRequest fromEnvironment();

    /// The message that carries the request. It can only grow, since the running launcher may be
    /// older or newer than the start.
    std::string encoded() const;
    static std::optional<StartRequest> decoded(std::string_view message);

    friend bool operator==(const StartRequest&, const StartRequest&) = default;
};

/// The longest message; more is cut off.
inline constexpr std::size_t maximumRequestSize = 4096;

/// Whether a start happened on a display that the running launcher was started with, as far as
/// either knows. Two values of DISPLAY name one X server if they differ in the screen alone (":0"
/// and ":0.0"), and a Wayland display may be named by its path.
bool isSameSession(const StartRequest& start, const StartRequest& running);

} // namespace quorvantel::platform
